#include "ClockModel.h"

#include "Fields.h"

#include <utility>

namespace clockplugin {

using vela::plugin::Host;
using vela::plugin::WallTime;

namespace {

constexpr const char* stopwatchFile = "stopwatch.txt";
constexpr const char* timerFile = "timer.txt";
constexpr const char* citiesFile = "cities.txt";
constexpr const char* settingsFile = "settings.txt";

std::string_view nameOf(Tab tab) {
    switch (tab) {
    case Tab::Timer:
        return "timer";
    case Tab::Stopwatch:
        return "stopwatch";
    case Tab::World:
        break;
    }
    return "world";
}

} // namespace

ClockModel::ClockModel(Host& host) : host_(host) {
    const vela::plugin::Storage& storage = host.storage();
    if (auto text = storage.read(stopwatchFile))
        stopwatch = Stopwatch::restored(Fields(std::move(*text)), now(), wallTime());
    if (auto text = storage.read(timerFile))
        timer = CountdownTimer::restored(Fields(std::move(*text)));
    if (const auto text = storage.read(citiesFile))
        cities = WorldClockList::restored(*text);
    if (auto text = storage.read(settingsFile))
        readSettings(std::move(*text));
}

void ClockModel::readSettings(std::string text) {
    const Fields fields(std::move(text));
    for (const Tab each : {Tab::Timer, Tab::Stopwatch})
        if (fields.value("tab") == nameOf(each))
            tab = each;
    if (fields.value("faces") == "analog")
        faceStyle = FaceStyle::Analog;
    if (fields.value("hours") == "twelve")
        hourStyle = HourStyle::Twelve;
}

void ClockModel::keepStopwatch() {
    keep(stopwatchFile, stopwatch.kept(now(), wallTime()).text());
}
void ClockModel::keepTimer() {
    keep(timerFile, timer.kept().text());
}
void ClockModel::keepCities() {
    keep(citiesFile, cities.kept());
}

void ClockModel::keepSettings() {
    Fields fields;
    fields.add("tab", nameOf(tab));
    fields.add("faces", faceStyle == FaceStyle::Analog ? "analog" : "digital");
    fields.add("hours", hourStyle == HourStyle::Twelve ? "twelve" : "twenty-four");
    keep(settingsFile, fields.text());
}

void ClockModel::keep(const char* name, const std::string& contents) {
    if (!host_.storage().write(name, contents))
        host_.log(std::string(name) + " could not be kept");
}

ZonedTime ClockModel::localTime() const {
    const WallTime wall = host_.wallTime();
    return ZonedTime::at(wall.seconds, wall.secondsFromUtc, wall.secondsFromUtc);
}

std::optional<ZonedTime> ClockModel::timeIn(const City& city) const {
    const WallTime wall = host_.wallTime();
    const std::optional<int> offset = host_.secondsFromUtcIn(city.zone, wall.seconds);
    if (!offset)
        return std::nullopt;
    return ZonedTime::at(wall.seconds, *offset, wall.secondsFromUtc);
}

} // namespace clockplugin
