// A finger on the screen of a test: its touches, and the time that passes between them.
#pragma once

#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"

namespace support {

class Finger {
public:
    explicit Finger(foundation::VirtualRunLoop& loop, std::int64_t identifier = 1)
        : loop_(loop), identifier_(identifier) {}

    void down(toolkit::Point point) {
        point_ = point;
        dispatcher().touchDown(identifier_, point, loop_.now());
    }
    /// Moves in a straight line, with an event for each of `steps` frames.
    void moveTo(toolkit::Point point, int steps = 1) {
        const toolkit::Point from = point_;
        for (int step = 1; step <= steps; ++step) {
            loop_.advance(foundation::RunLoop::frameInterval);
            const double share = static_cast<double>(step) / steps;
            point_ = {from.x + (point.x - from.x) * share, from.y + (point.y - from.y) * share};
            dispatcher().touchMove(identifier_, point_, loop_.now());
        }
    }
    void rest(double seconds) { loop_.advance(seconds); }
    void up() { dispatcher().touchUp(identifier_, loop_.now()); }
    void tap(toolkit::Point point) {
        down(point);
        loop_.advance(0.05);
        up();
        loop_.turn();
    }

private:
    static toolkit::TouchDispatcher& dispatcher() { return toolkit::TouchDispatcher::shared(); }
    foundation::VirtualRunLoop& loop_;
    std::int64_t identifier_;
    toolkit::Point point_;
};

} // namespace support
