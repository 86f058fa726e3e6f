#include "hosts/phone/applications/RadioApplication.h"

#include "hosts/phone/applications/RadioView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

RadioApplication::RadioApplication(PhoneMediaPort& music)
    : Application(
          {applications::radio, toolkit::orientationMaskAllButUpsideDown, StatusBarStyle::DarkContent}),
      music_(music) {}

void RadioApplication::becameActive() {
    view_->setActive(true);
}

void RadioApplication::resignedActive() {
    view_->setActive(false);
}

void RadioApplication::keyboardFrameChanged(toolkit::Rect frame) {
    if (view_)
        view_->setKeyboardFrame(frame);
}

std::shared_ptr<toolkit::UIView> RadioApplication::makeView() {
    view_ = std::make_shared<RadioView>(music_);
    return view_;
}

} // namespace phone
