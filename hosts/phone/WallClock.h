// The time of day as the phone shows it, and who is told when it changes.
//
// Times are seconds since 1970, UTC. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"

#include <ctime>
#include <functional>
#include <list>
#include <memory>
#include <string>

namespace phone {

class WallClock {
public:
    /// Without a `source` the clock starts at a fixed morning and follows the main run loop.
    WallClock(std::function<std::time_t()> source, long secondsFromUtc);

    std::time_t now() const { return source_(); }
    /// The fields of the phone's own time zone.
    std::tm local() const { return at(secondsFromUtc_); }
    /// The fields of a zone that many seconds east of UTC.
    std::tm at(long secondsFromUtc) const;
    long secondsFromUtc() const { return secondsFromUtc_; }

    /// Calls `handler` at the beginning of every minute; the clock's only timer is one for all of them.
    foundation::Handle addMinuteObserver(std::function<void()> handler);

    /// "9:41", "14:05".
    static std::string timeText(const std::tm& time);
    /// "Monday".
    static std::string weekdayText(const std::tm& time);
    /// "March 21".
    static std::string dayText(const std::tm& time);

private:
    using Observers = std::list<std::shared_ptr<std::function<void()>>>;
    void scheduleNextMinute();
    void minuteBegan();

    std::function<std::time_t()> source_;
    long secondsFromUtc_;
    std::shared_ptr<Observers> observers_ = std::make_shared<Observers>();
    foundation::Handle timer_;
};

} // namespace phone
