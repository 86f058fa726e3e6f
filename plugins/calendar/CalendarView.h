// The plug-in's view: a month, the chosen day, and the buttons around them.
#pragma once

#include "CalendarDate.h"
#include "DayCard.h"
#include "DayNotes.h"
#include "MonthView.h"

#include "VelaPlugin.h"

#include <memory>

namespace calendarplugin {

class CalendarView : public vela::plugin::View {
public:
    static constexpr double saveDelay = 0.4; // seconds from typing to writing
    static constexpr double retryDelay = 3;  // seconds after writing failed

    explicit CalendarView(vela::plugin::Host& host);
    ~CalendarView() override;

    void layout(vela::plugin::Rect bounds) override;

    void appWillBecomeFirstResponder();
    void appBecomeActive();
    void appWillEnterBackground();
    void appDidEnterBackground();
    void tapTitleLabel();
    void velaInvoked();
    void velaDismissed();

private:
    void makeButtons();
    void turn(int months);
    void select(Date date);
    void jumpToToday();
    void switchWeekStart();
    void showAll();
    void setOpen(bool open);
    void setVisible(bool visible);
    void updateTimer();
    void refreshToday();
    void noteChanged(const std::string& text);
    void editingChanged(bool editing);
    void saveSoon(double seconds);
    void saveNow();

    DayNotes notes_;
    WeekStart weekStart_;
    Date today_;
    Date selected_;
    Month month_;
    MonthView monthView_;
    DayCard dayCard_;
    std::unique_ptr<vela::plugin::Button> previous_;
    std::unique_ptr<vela::plugin::Label> title_;
    std::unique_ptr<vela::plugin::Button> next_;
    std::unique_ptr<vela::plugin::Button> todayButton_;
    std::unique_ptr<vela::plugin::Button> weekStartButton_;
    bool editing_ = false;
    bool open_ = false;
    bool visible_ = true; // the panel is there when the view is made
    std::unique_ptr<vela::plugin::Timer> dayTimer_;
    std::unique_ptr<vela::plugin::Timer> saveTimer_;
};

} // namespace calendarplugin
