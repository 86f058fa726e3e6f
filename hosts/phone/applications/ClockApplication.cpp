#include "hosts/phone/applications/ClockApplication.h"

#include "hosts/phone/applications/ClockView.h"
#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

ClockApplication::ClockApplication(WallClock& clock)
    : Application({applications::clock, toolkit::orientationMaskPortrait, StatusBarStyle::LightContent}),
      clock_(clock) {}

void ClockApplication::becameActive() {
    view_->showTime();
    tick_ = foundation::RunLoop::main().scheduleTimer(1, true, [this] { view_->showTime(); });
}

void ClockApplication::resignedActive() {
    tick_.reset();
}

std::shared_ptr<toolkit::UIView> ClockApplication::makeView() {
    view_ = std::make_shared<ClockView>(clock_);
    return view_;
}

} // namespace phone
