#include "hosts/phone/WallClock.h"

#include "platform/foundation/RunLoop.h"

#include <cmath>
#include <cstdio>

namespace phone {

namespace {

constexpr std::time_t springMorning = 1458553260; // 2016-03-21 09:41:00 UTC

std::function<std::time_t()> clockOfRunLoop() {
    const double start = foundation::RunLoop::main().now();
    return [start] {
        // A timer for a whole second may fire the last bit of a double early.
        constexpr double tolerance = 1e-6;
        return springMorning +
               static_cast<std::time_t>(std::floor(foundation::RunLoop::main().now() - start + tolerance));
    };
}

std::string formatted(const char* format, const std::tm& time) {
    char text[64];
    return std::string(text, std::strftime(text, sizeof text, format, &time));
}

} // namespace

WallClock::WallClock(std::function<std::time_t()> source, long secondsFromUtc)
    : source_(source ? std::move(source) : clockOfRunLoop()), secondsFromUtc_(secondsFromUtc) {
    scheduleNextMinute();
}

std::tm WallClock::at(long secondsFromUtc) const {
    const std::time_t shifted = now() + secondsFromUtc;
    std::tm fields{};
    gmtime_r(&shifted, &fields);
    return fields;
}

foundation::Handle WallClock::addMinuteObserver(std::function<void()> handler) {
    auto entry = std::make_shared<std::function<void()>>(std::move(handler));
    observers_->push_back(entry);
    return foundation::Handle([entry, observers = std::weak_ptr(observers_)] {
        if (auto list = observers.lock())
            list->remove(entry);
    });
}

void WallClock::scheduleNextMinute() {
    const int second = local().tm_sec;
    timer_ =
        foundation::RunLoop::main().scheduleTimer(std::max(1, 60 - second), false, [this] { minuteBegan(); });
}

void WallClock::minuteBegan() {
    scheduleNextMinute();
    const Observers told = *observers_; // observers may come and go meanwhile
    for (const auto& observer : told)
        (*observer)();
}

std::string WallClock::timeText(const std::tm& time) {
    char text[32];
    std::snprintf(text, sizeof text, "%d:%02d", time.tm_hour, time.tm_min);
    return text;
}

std::string WallClock::weekdayText(const std::tm& time) {
    return formatted("%A", time);
}

std::string WallClock::dayText(const std::tm& time) {
    return formatted("%B ", time) + std::to_string(time.tm_mday);
}

} // namespace phone
