#include "hosts/session/wayland/KeyRepeat.h"

#include "platform/foundation/RunLoop.h"

#include <algorithm>

namespace session {

namespace {

constexpr double fastest = 100; // strokes a second: nobody reads more, whatever a compositor asks for

} // namespace

void KeyRepeat::setPace(double rate, double delay) {
    rate_ = std::clamp(rate, 0.0, fastest);
    delay_ = std::max(delay, 0.0);
    if (rate_ == 0)
        stop();
}

void KeyRepeat::start(std::uint32_t key) {
    stop();
    if (rate_ == 0)
        return;
    key_ = key;
    auto& loop = foundation::RunLoop::main();
    timer_ = loop.scheduleTimer(delay_, false, [this, &loop] {
        timer_ = loop.scheduleTimer(1 / rate_, true, [this] { strike_(key_); });
        strike_(key_);
    });
}

void KeyRepeat::release(std::uint32_t key) {
    if (key == key_)
        stop();
}

} // namespace session
