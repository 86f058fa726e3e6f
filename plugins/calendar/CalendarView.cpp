#include "CalendarView.h"

#include "CalendarLayout.h"
#include "CalendarSettings.h"
#include "DateText.h"
#include "Look.h"

#include <algorithm>

namespace calendarplugin {

using namespace vela::plugin;

namespace {
constexpr double longestWait = 60; // seconds between looks at the date: the phone's zone may change
constexpr double afterMidnight = 0.05;
constexpr double wideTitle = 120; // points, from which a month's name is written out
constexpr double wideButton = 90; // points, from which there is room for more than a word

Month monthOf(Date date) {
    return date.year() / date.month();
}
} // namespace

CalendarView::CalendarView(Host& host)
    : View(host),
      notes_(host.storage(), [&host](std::string_view line) { host.log(line); }),
      weekStart_(loadWeekStart(host.storage())),
      today_(dateAt(host.wallTime().seconds, host.wallTime().secondsFromUtc)),
      selected_(today_),
      month_(monthOf(today_)),
      monthView_(host, notes_, {[this](Date date) { select(date); }, [this](int months) { turn(months); }}),
      dayCard_(host, {[this](const std::string& text) { noteChanged(text); },
                      [this](bool editing) { editingChanged(editing); }}),
      previous_(host.addButton("‹")),
      title_(host.addLabel()),
      next_(host.addButton("›")),
      todayButton_(host.addButton("Today")),
      weekStartButton_(host.addButton()) {
    makeButtons();
    showAll();
}

CalendarView::~CalendarView() {
    saveNow();
}

void CalendarView::makeButtons() {
    for (Button* button : {previous_.get(), next_.get(), todayButton_.get(), weekStartButton_.get()}) {
        button->setFont({.size = 16, .weight = Weight::Semibold});
        button->setColor(colors::primary);
        button->setBackground(look::card);
        button->setCornerRadius(look::cornerRadius);
    }
    for (Button* button : {previous_.get(), next_.get()})
        button->setFont({.size = 28, .weight = Weight::Medium});
    title_->setFont({.size = 18, .weight = Weight::Semibold});
    title_->setColor(colors::primary);
    title_->setAlignment(Alignment::Center);
    title_->setBackground(look::card);
    title_->setCornerRadius(look::cornerRadius);
    previous_->onTap([this] { turn(-1); });
    next_->onTap([this] { turn(1); });
    todayButton_->onTap([this] { jumpToToday(); });
    weekStartButton_->onTap([this] { switchWeekStart(); });
}

void CalendarView::layout(Rect bounds) {
    const CalendarLayout layout = layOutCalendar(bounds.size(), editing_);
    previous_->setFrame(layout.previous);
    title_->setFrame(layout.title);
    next_->setFrame(layout.next);
    monthView_.setFrame(layout.month);
    dayCard_.layout(layout);
    todayButton_->setFrame(layout.today);
    weekStartButton_->setFrame(layout.weekStart);
    const bool narrowTitle = layout.title.width < wideTitle;
    title_->setFont({.size = narrowTitle ? 13.0 : 18.0, .weight = Weight::Semibold});
    title_->setText(narrowTitle ? shortMonthTitle(month_) : monthTitle(month_));
    const bool room = layout.weekStart.width >= wideButton;
    for (Button* button : {todayButton_.get(), weekStartButton_.get()})
        button->setFont({.size = room ? 16.0 : 13.0, .weight = Weight::Semibold});
    const std::string day = weekStart_ == WeekStart::Monday ? "Mon" : "Sun";
    weekStartButton_->setTitle(room ? "From " + day + "day" : day);
    for (Child* child : {static_cast<Child*>(previous_.get()), static_cast<Child*>(title_.get()),
                         static_cast<Child*>(next_.get()), static_cast<Child*>(todayButton_.get()),
                         static_cast<Child*>(weekStartButton_.get())})
        child->setHidden(layout.monthHidden);
    monthView_.setHidden(layout.monthHidden);
}

void CalendarView::showAll() {
    previous_->setEnabled(monthAfter(month_, -1) != month_);
    next_->setEnabled(monthAfter(month_, 1) != month_);
    monthView_.show({month_, weekStart_, today_, selected_});
    dayCard_.show(selected_, notes_.of(selected_));
    setNeedsLayout();
}

void CalendarView::turn(int months) {
    month_ = monthAfter(month_, months);
    showAll();
}

void CalendarView::select(Date date) {
    selected_ = date;
    month_ = monthOf(date);
    showAll();
}

void CalendarView::jumpToToday() {
    refreshToday();
    select(today_);
}

void CalendarView::switchWeekStart() {
    weekStart_ = weekStart_ == WeekStart::Monday ? WeekStart::Sunday : WeekStart::Monday;
    if (!saveWeekStart(host().storage(), weekStart_))
        host().log("The week's first day could not be saved");
    showAll();
}

void CalendarView::appWillBecomeFirstResponder() {
    refreshToday();
}

void CalendarView::appBecomeActive() {
    setOpen(true);
}

void CalendarView::appWillEnterBackground() {
    saveNow();
}

void CalendarView::appDidEnterBackground() {
    setOpen(false);
}

void CalendarView::tapTitleLabel() {
    if (dayCard_.isEditing())
        dayCard_.endEditing();
    else
        jumpToToday();
}

void CalendarView::velaInvoked() {
    setVisible(true);
}

void CalendarView::velaDismissed() {
    setVisible(false);
}

void CalendarView::setOpen(bool open) {
    open_ = open;
    updateTimer();
}

void CalendarView::setVisible(bool visible) {
    visible_ = visible;
    updateTimer();
}

void CalendarView::updateTimer() {
    if (open_ && visible_) {
        refreshToday();
        if (notes_.isUnsaved() && !saveTimer_)
            saveSoon(saveDelay);
        return;
    }
    dayTimer_.reset();
    monthView_.rest();
    dayCard_.endEditing();
    saveNow();
}

void CalendarView::refreshToday() {
    const WallTime now = host().wallTime();
    const Date today = dateAt(now.seconds, now.secondsFromUtc);
    if (today != today_) {
        // Who looks at today goes on doing so, unless they are just writing something down.
        const bool follows = selected_ == today_ && month_ == monthOf(today_) && !editing_;
        today_ = today;
        if (follows) {
            selected_ = today;
            month_ = monthOf(today);
        }
        showAll();
    }
    if (open_ && visible_)
        dayTimer_ = host().startTimer(
            std::min(longestWait, secondsToMidnight(now.seconds, now.secondsFromUtc) + afterMidnight), false,
            [this] { refreshToday(); });
}

void CalendarView::noteChanged(const std::string& text) {
    notes_.set(selected_, text);
    monthView_.notesChanged();
    if (notes_.isUnsaved() && !saveTimer_)
        saveSoon(saveDelay);
}

void CalendarView::editingChanged(bool editing) {
    editing_ = editing;
    if (!editing)
        saveNow();
    setNeedsLayout();
}

void CalendarView::saveSoon(double seconds) {
    saveTimer_ = host().startTimer(seconds, false, [this] {
        saveNow();
        if (notes_.isUnsaved())
            saveSoon(retryDelay);
    });
}

void CalendarView::saveNow() {
    saveTimer_.reset();
    if (!notes_.save())
        host().log("The notes of the days could not be saved");
}

VELA_PRINCIPAL_CLASS(CalendarView)

} // namespace calendarplugin
