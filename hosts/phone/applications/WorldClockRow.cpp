#include "hosts/phone/applications/WorldClockRow.h"

#include "hosts/phone/WallClock.h"
#include "hosts/phone/screens/Labels.h"

#include <cstdio>
#include <cstdlib>

using namespace toolkit;

namespace phone {

namespace {

std::string dayWord(const std::tm& there, const std::tm& here) {
    if (there.tm_yday == here.tm_yday)
        return "Today";
    // Around new year the day of the year jumps back to 0.
    const bool ahead =
        there.tm_year != here.tm_year ? there.tm_year > here.tm_year : there.tm_yday > here.tm_yday;
    return ahead ? "Tomorrow" : "Yesterday";
}

std::string differenceText(long seconds) {
    if (seconds == 0)
        return "same time";
    char text[32];
    const long minutes = std::labs(seconds) / 60;
    if (minutes % 60)
        std::snprintf(text, sizeof text, "%c%ld:%02ld h", seconds < 0 ? '-' : '+', minutes / 60,
                      minutes % 60);
    else
        std::snprintf(text, sizeof text, "%c%ld h", seconds < 0 ? '-' : '+', minutes / 60);
    return text;
}

} // namespace

runtime::Class& WorldClockRow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<WorldClockRow>("WorldClockRow", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(WorldClockRow)

WorldClockRow::WorldClockRow(const std::string& place, long secondsFromUtc)
    : secondsFromUtc_(secondsFromUtc),
      place_(makeLabel(place, Font::system(20), Color::white(1))),
      difference_(makeLabel("", Font::system(13), Color::white(0.62))),
      time_(makeLabel("", Font::system(38, FontWeight::Light), Color::white(1), TextAlignment::Right)),
      hairline_(std::make_shared<UIView>()) {
    hairline_->setBackgroundColor(Color::white(0.22));
    for (const std::shared_ptr<UIView>& view :
         {std::shared_ptr<UIView>(place_), std::shared_ptr<UIView>(difference_),
          std::shared_ptr<UIView>(time_), hairline_})
        addSubview(view);
}

void WorldClockRow::setTimes(const std::tm& there, const std::tm& here, long hereFromUtc) {
    const std::string time = WallClock::timeText(there);
    if (time == time_->text())
        return;
    time_->setText(time);
    difference_->setText(dayWord(there, here) + ", " + differenceText(secondsFromUtc_ - hereFromUtc));
}

void WorldClockRow::layoutSubviews() {
    const Size size = bounds().size();
    difference_->setFrame({0, 10, size.width * 0.6, 18});
    place_->setFrame({0, 29, size.width * 0.6, 27});
    time_->setFrame({size.width * 0.5, 8, size.width * 0.5, 50});
    hairline_->setFrame({0, size.height - 0.5, size.width, 0.5});
}

} // namespace phone
