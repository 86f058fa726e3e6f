#include "hosts/phone/applications/MusicApplication.h"

#include "hosts/phone/applications/MusicView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

MusicApplication::MusicApplication(PhoneMediaPort& music)
    : Application(
          {applications::music, toolkit::orientationMaskAllButUpsideDown, StatusBarStyle::DarkContent}),
      music_(music) {}

void MusicApplication::becameActive() {
    view_->setActive(true);
}

void MusicApplication::resignedActive() {
    view_->setActive(false);
}

std::shared_ptr<toolkit::UIView> MusicApplication::makeView() {
    view_ = std::make_shared<MusicView>(music_);
    return view_;
}

} // namespace phone
