#include "tests/session/FirstFrame.h"

#include <chrono>

namespace tests {

namespace {

constexpr int step = 8; // points: the second one is more than a pan's ten
constexpr int stepsToPan = 2;
constexpr int framesOfRest = 12;
constexpr int fingerY = 300, lookedAtY = 100;

/// The clock of the compositor's frames.
double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

unsigned eventTime() {
    return static_cast<unsigned>(static_cast<unsigned long long>(now() * 1000));
}

} // namespace

FirstFrame pullFirstFrame(TestClient& hand, FrameWatch& watch, Edge edge, int width) {
    const int start = edge == Edge::Left ? 0 : width - 1, direction = edge == Edge::Left ? 1 : -1;
    const int lookedAtX = start + direction * step / 2;
    const auto moveTo = [&](int steps) {
        hand.moveTo(start + direction * step * steps, fingerY, eventTime());
    };
    hand.moveTo(start, fingerY, eventTime());
    const auto before = watch.next(lookedAtX, lookedAtY);
    hand.press(eventTime());
    for (int steps = 1; steps < stepsToPan; ++steps) {
        watch.next(lookedAtX, lookedAtY);
        moveTo(steps);
    }
    watch.next(lookedAtX, lookedAtY);
    const double begin = now();
    FirstFrame result;
    for (FrameWatch::Frame frame = before;
         frame.pixel == before.pixel && result.frames <= result.mostFrames;) {
        moveTo(stepsToPan + result.frames++);
        frame = watch.next(lookedAtX, lookedAtY);
        result.milliseconds = (frame.time - begin) * 1000;
    }
    // So slowly that the panel goes back, and from where it began.
    moveTo(stepsToPan);
    for (int frame = 0; frame < framesOfRest; ++frame)
        watch.next(lookedAtX, lookedAtY);
    hand.release(eventTime());
    return result;
}

} // namespace tests
