// The strokes of a key that is held: the compositor says how soon and how fast, and leaves the striking to
// its clients. The last key that went down is the one that repeats. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"

#include <cstdint>
#include <functional>

namespace session {

class KeyRepeat {
public:
    /// `strike` is called with the key's number for each stroke but the first.
    explicit KeyRepeat(std::function<void(std::uint32_t key)> strike) : strike_(std::move(strike)) {}

    /// `rate` strokes a second, none if that is 0; the first one after `delay` seconds. Until this is called
    /// nothing repeats.
    void setPace(double rate, double delay);
    void start(std::uint32_t key);
    /// Stops if it is this key that repeats.
    void release(std::uint32_t key);
    void stop() { timer_.reset(); }

private:
    std::function<void(std::uint32_t)> strike_;
    double rate_ = 0;
    double delay_ = 0;
    std::uint32_t key_ = 0;
    foundation::Handle timer_;
};

} // namespace session
