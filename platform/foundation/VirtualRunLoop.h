// A main loop whose clock moves only when it is told to, from one due moment to the next.
//
// Everything is deterministic: what is due at the same moment runs in the order in which it was scheduled,
// timers before the display links of that moment. What runs outside in real time, requests to servers, is
// waited for before the clock moves, so that it takes no time by this clock.
#pragma once

#include "platform/foundation/RunLoop.h"

#include <deque>
#include <mutex>

namespace foundation {

class VirtualRunLoop final : public RunLoop {
public:
    VirtualRunLoop();
    ~VirtualRunLoop() override;

    double now() const override { return now_; }
    Handle scheduleTimer(double interval, bool repeats, std::function<void()> fire) override;
    void performOnMain(std::function<void()> block) override;
    void performInBackground(std::function<void()> work) override;
    Handle addDisplayLink(std::function<void(double)> tick) override;

    /// Ends the present turn, then moves the clock exactly `seconds` on and runs everything that falls due on
    /// the way, each at its own moment: timers, links, then turns (blocks and turn hooks) until no block
    /// waits. Moments less than a nanosecond apart count as one.
    void advance(double seconds);
    /// Runs one turn without moving the clock: blocks that wait, then the turn hooks.
    void turn();
    /// Advances frame by frame until `done` holds; false when `limit` seconds did not suffice.
    bool runUntil(const std::function<bool()>& done, double limit);

    /// How long, in seconds of real time, is waited for what runs outside; the clock then goes on without it.
    /// With 0 nothing is waited for, and its ends come when they come.
    void setPatience(double seconds) { patience_ = seconds; }

private:
    struct Timer {
        double begin = 0;
        double interval = 0;
        std::uint64_t beat = 1;
        bool repeats = false;
        bool removed = false;
        std::uint64_t order = 0;
        std::function<void()> fire;
        double due() const { return begin + interval * static_cast<double>(beat); }
    };
    struct Link {
        bool removed = false;
        std::uint64_t nextFrame = 0;
        std::function<void(double)> tick;
    };
    void advanceTo(double target);
    /// Runs turns at the present moment until no block waits, with a limit for blocks without an end.
    void settle();
    /// Waits for what runs outside, until it has led to nothing further.
    void settleOutsideWork();
    bool hasBlocks();
    void runBlocks();
    std::shared_ptr<Timer> nextTimer() const;
    void runTimers();
    double nextFrameTime() const;
    void runLinks();

    double now_ = 0;
    double patience_ = 75; // longer than any request may take without an answer
    std::uint64_t order_ = 0;
    std::mutex blocksMutex_;
    std::deque<std::function<void()>> blocks_;
    std::shared_ptr<std::list<std::shared_ptr<Timer>>> timers_ =
        std::make_shared<std::list<std::shared_ptr<Timer>>>();
    std::shared_ptr<std::list<std::shared_ptr<Link>>> links_ =
        std::make_shared<std::list<std::shared_ptr<Link>>>();
};

} // namespace foundation
