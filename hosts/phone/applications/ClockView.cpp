#include "hosts/phone/applications/ClockView.h"

#include "hosts/phone/screens/Labels.h"

#include <cstdio>

using namespace toolkit;

namespace phone {

namespace {

const Color tint = Color::rgba(1, 0.58, 0.15);

struct Place {
    const char* name;
    double hoursFromUtc;
};

/// Places that do not change their clocks in summer.
constexpr Place places[] = {
    {"Reykjavík", 0}, {"Nairobi", 3}, {"Mumbai", 5.5}, {"Tokyo", 9}, {"Honolulu", -10}};

} // namespace

runtime::Class& ClockView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<ClockView>("ClockView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ClockView)

ClockView::ClockView(WallClock& clock)
    : clock_(clock),
      bar_(std::make_shared<NavigationBar>("World Clock", NavigationBarStyle::Dark, tint)),
      page_(std::make_shared<UIScrollView>()),
      face_(std::make_shared<ClockFace>(ClockFaceStyle::Dark, SecondHand::Shown)),
      time_(makeLabel("", Font{44, FontWeight::Thin, true}, Color::white(1), TextAlignment::Center)) {
    setBackgroundColor(Color::black());
    addSubview(page_);
    addSubview(bar_);
    page_->addSubview(face_);
    page_->addSubview(time_);
    for (const Place& place : places) {
        rows_.push_back(
            std::make_shared<WorldClockRow>(place.name, static_cast<long>(place.hoursFromUtc * 3600)));
        page_->addSubview(rows_.back());
    }
    showTime();
}

void ClockView::showTime() {
    const std::tm now = clock_.local();
    face_->setTime(now);
    char seconds[8];
    std::snprintf(seconds, sizeof seconds, ":%02d", now.tm_sec);
    time_->setText(WallClock::timeText(now) + seconds);
    for (const auto& row : rows_)
        row->setTimes(clock_.at(row->secondsFromUtc()), now, clock_.secondsFromUtc());
}

void ClockView::layoutSubviews() {
    const Size size = bounds().size();
    const double top = NavigationBar::heightFor(size);
    bar_->setFrame({0, 0, size.width, top});
    page_->setFrame({0, top, size.width, size.height - top});
    const double width = std::min(size.width - 32, 560.0), left = (size.width - width) / 2;
    const double side = std::min({size.width * 0.62, size.height * 0.34, 320.0});
    double y = 18;
    face_->setFrame({(size.width - side) / 2, y, side, side});
    y += side + 8;
    time_->setFrame({0, y, size.width, 54});
    y += 60;
    for (const auto& row : rows_) {
        row->setFrame({left, y, width, WorldClockRow::height});
        y += WorldClockRow::height;
    }
    page_->setContentSize({size.width, y + 12});
}

} // namespace phone
