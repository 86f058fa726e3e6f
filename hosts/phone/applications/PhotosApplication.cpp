#include "hosts/phone/applications/PhotosApplication.h"

#include "hosts/phone/applications/PhotosView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

PhotosApplication::PhotosApplication()
    : Application(
          {applications::photos, toolkit::orientationMaskAllButUpsideDown, StatusBarStyle::DarkContent}) {}

std::shared_ptr<toolkit::UIView> PhotosApplication::makeView() {
    return std::make_shared<PhotosView>();
}

} // namespace phone
