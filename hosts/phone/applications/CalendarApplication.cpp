#include "hosts/phone/applications/CalendarApplication.h"

#include "hosts/phone/applications/CalendarView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

CalendarApplication::CalendarApplication(WallClock& clock)
    : Application(
          {applications::calendar, toolkit::orientationMaskAllButUpsideDown, StatusBarStyle::DarkContent}),
      clock_(clock) {}

void CalendarApplication::becameActive() {
    const auto showToday = [this] { view_->showMonth(view_->monthFromNow()); };
    showToday();
    minute_ = clock_.addMinuteObserver(showToday);
}

void CalendarApplication::resignedActive() {
    minute_.reset();
}

std::shared_ptr<toolkit::UIView> CalendarApplication::makeView() {
    view_ = std::make_shared<CalendarView>(clock_);
    return view_;
}

} // namespace phone
