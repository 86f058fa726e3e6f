#include "hosts/phone/applications/CalendarView.h"

#include "hosts/phone/screens/Labels.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace phone {

namespace {

const Color tint = Color::rgba(0.93, 0.26, 0.24);
constexpr double turnDistance = 60;   // points of a swipe
constexpr double turnDuration = 0.25; // seconds
constexpr double footerHeight = 64;

const char* monthName(int month) {
    static const char* const names[] = {"January",   "February", "March",    "April",
                                        "May",       "June",     "July",     "August",
                                        "September", "October",  "November", "December"};
    return names[month];
}

} // namespace

runtime::Class& CalendarView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<CalendarView>("CalendarView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(CalendarView)

CalendarView::CalendarView(WallClock& clock)
    : clock_(clock),
      bar_(std::make_shared<NavigationBar>("Calendar", NavigationBarStyle::Light, tint)),
      name_(makeLabel("", Font::system(34, FontWeight::Bold), Color::white(0.08))),
      year_(makeLabel("", Font::system(34, FontWeight::Light), tint)),
      month_(std::make_shared<MonthView>(MonthViewStyle::OnPaper)),
      footer_(std::make_shared<UIView>()),
      today_(makeLabel("", Font::system(16), Color::white(0.30), TextAlignment::Center)) {
    setBackgroundColor(Color::white(1));
    setClipsToBounds(true);
    footer_->setBackgroundColor(Color::white(0.965));
    footer_->addSubview(today_);
    for (const std::shared_ptr<UIView>& view :
         {std::shared_ptr<UIView>(month_), std::shared_ptr<UIView>(name_), std::shared_ptr<UIView>(year_),
          footer_, std::shared_ptr<UIView>(bar_)})
        addSubview(view);
    auto pan = std::make_shared<UIPanGestureRecognizer>(nullptr, runtime::Selector("panned:"));
    pan->addHandler([this](UIGestureRecognizer& recognizer) {
        handlePan(static_cast<UIPanGestureRecognizer&>(recognizer));
    });
    addGestureRecognizer(pan);
    showMonth(0);
}

void CalendarView::showMonth(int fromNow) {
    constexpr int furthest = 12 * 400; // months; the calendar repeats after that
    monthFromNow_ = std::clamp(fromNow, -furthest, furthest);
    const std::tm today = clock_.local();
    const int months = (today.tm_year + 1900) * 12 + today.tm_mon + monthFromNow_;
    month_->setMonth(months / 12, months % 12, monthFromNow_ == 0 ? today.tm_mday : 0);
    name_->setText(monthName(months % 12));
    bar_->setLeftButton(std::string("‹ ") + monthName((months + 11) % 12), [this] { turn(-1); });
    bar_->setRightButton(std::string(monthName((months + 1) % 12)) + " ›", [this] { turn(1); });
    year_->setText(std::to_string(months / 12));
    today_->setText("Today is " + WallClock::weekdayText(today) + ", " + WallClock::dayText(today));
    setNeedsLayout();
}

void CalendarView::turn(int months) {
    showMonth(monthFromNow_ + months);
    month_->setTransform(AffineTransform::translation(months * bounds().width * 0.3, 0));
    month_->setAlpha(0);
    UIView::animate(turnDuration, 0, AnimationCurve::EaseOut, [this] {
        month_->setTransform({});
        month_->setAlpha(1);
    });
}

void CalendarView::handlePan(UIPanGestureRecognizer& pan) {
    const double moved = pan.translationInView(this).x;
    if (pan.state() == GestureState::Ended && std::abs(moved) > turnDistance)
        turn(moved < 0 ? 1 : -1);
}

void CalendarView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    bar_->setFrame({0, 0, size.width, top});
    const bool low = size.height < 500;
    const double footer = low ? 40 : footerHeight;
    footer_->setFrame({0, size.height - footer, size.width, footer});
    today_->setFrame({0, 0, size.width, footer});

    const double margin = size.width > 600 ? 40 : 20;
    const double nameWidth = name_->sizeThatFits({size.width, 0}).width + 1, nameHeight = low ? 0 : 44;
    name_->setHidden(low);
    year_->setHidden(low);
    bar_->setTitle(low ? name_->text() + " " + year_->text() : "Calendar");
    name_->setFrame({margin, top + 18, nameWidth, 44});
    year_->setFrame({margin + nameWidth + 9, top + 18, 120, 44});
    const double monthTop = top + (low ? 4 : nameHeight + 34);
    const double room = size.height - footer - monthTop - 8;
    month_->setBounds({0, 0, size.width - 2 * margin + 16, std::min(room, size.width * 1.05)});
    month_->setCenter({size.width / 2, monthTop + month_->bounds().height / 2});
}

void CalendarView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["month"] = name_->text() + " " + year_->text();
}

} // namespace phone
