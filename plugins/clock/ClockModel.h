// What the clock knows, kept in the storage whenever it changes.
#pragma once

#include "CountdownTimer.h"
#include "Stopwatch.h"
#include "VelaPlugin.h"
#include "WorldClockList.h"
#include "ZonedTime.h"

#include <optional>
#include <string>

namespace clockplugin {

enum class Tab { World, Timer, Stopwatch };
enum class FaceStyle { Digital, Analog };

class ClockModel {
public:
    explicit ClockModel(vela::plugin::Host& host);

    vela::plugin::Host& host() const { return host_; }
    Stopwatch stopwatch;
    CountdownTimer timer;
    WorldClockList cities;
    Tab tab = Tab::World;
    FaceStyle faceStyle = FaceStyle::Digital;
    HourStyle hourStyle = HourStyle::TwentyFour;

    void keepStopwatch();
    void keepTimer();
    void keepCities();
    void keepSettings();

    double now() const { return host_.now(); }
    /// Seconds since 1970.
    double wallTime() const { return host_.wallTime().seconds; }
    ZonedTime localTime() const;
    /// The time there; nothing when the phone does not know the zone.
    std::optional<ZonedTime> timeIn(const City& city) const;

private:
    void readSettings(std::string text);
    void keep(const char* name, const std::string& contents);

    vela::plugin::Host& host_;
};

} // namespace clockplugin
