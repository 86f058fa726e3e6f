// The calendar: one month over the whole page, and buttons and swipes to the next and the last one.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/NavigationBar.h"
#include "hosts/phone/screens/MonthView.h"

namespace toolkit {
class UIPanGestureRecognizer;
}

namespace phone {

class CalendarView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit CalendarView(WallClock& clock);

    /// Shows the month that many months after the present one.
    void showMonth(int fromNow);
    int monthFromNow() const { return monthFromNow_; }

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    void turn(int months);
    void handlePan(toolkit::UIPanGestureRecognizer& pan);

    WallClock& clock_;
    int monthFromNow_ = 0;
    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<toolkit::UILabel> name_;
    std::shared_ptr<toolkit::UILabel> year_;
    std::shared_ptr<MonthView> month_;
    std::shared_ptr<toolkit::UIView> footer_;
    std::shared_ptr<toolkit::UILabel> today_;
};

} // namespace phone
