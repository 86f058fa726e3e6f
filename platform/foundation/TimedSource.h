// A source of GLib's default main context that is woken at the moments it is given, and at no others.
//
// Times are seconds of GLib's monotonic clock. Made and let go on the main thread, also while its own
// callback runs; any thread may set the time.
#pragma once

#include <functional>

typedef struct _GSource GSource;

namespace foundation {

class TimedSource {
public:
    explicit TimedSource(std::function<void()> fire);
    TimedSource(const TimedSource&) = delete;
    TimedSource& operator=(const TimedSource&) = delete;
    ~TimedSource();

    /// Calls `fire` when the clock reaches `time`, and again in every round of the context until it is given
    /// another time or rests.
    void fireAt(double time);
    void fireNow();
    void rest();

private:
    GSource* source_;
};

} // namespace foundation
