#include "hosts/phone/applications/MusicApplication.h"

#include "hosts/phone/applications/MusicView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

MusicApplication::MusicApplication()
    : Application({"com.apple.Music", "Music", IconKind::Music, toolkit::orientationMaskAllButUpsideDown,
                   StatusBarStyle::DarkContent}) {}

std::shared_ptr<toolkit::UIView> MusicApplication::makeView() {
    return std::make_shared<MusicView>();
}

} // namespace phone
