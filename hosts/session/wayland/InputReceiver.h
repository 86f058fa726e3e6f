// Whoever wants to hear of fingers, the pointer's button and keys on this client's surfaces.
//
// Points are in the surface's own coordinates; times are the compositor's milliseconds.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

#include <cstdint>
#include <string>

struct wl_surface;

namespace session {

enum class Key { Text, Escape, Backspace };

/// The pointer's button is a finger of its own, beside those of the touch screen, which count from 0 and
/// never come as far.
constexpr std::int64_t pointerFinger = 1'000'000'000;

class InputReceiver {
public:
    virtual ~InputReceiver() = default;

    virtual void fingerDown(std::int64_t finger, wl_surface* surface, toolkit::Point point,
                            std::uint32_t time) = 0;
    virtual void fingerMoved(std::int64_t finger, toolkit::Point point, std::uint32_t time) = 0;
    virtual void fingerUp(std::int64_t finger, std::uint32_t time) = 0;
    /// The compositor takes the finger for itself, or what it was on has gone.
    virtual void fingerCancelled(std::int64_t finger) = 0;
    /// Called when a key goes down, and again and again while it is held. `text` is what it types, of a text
    /// key.
    virtual void keyPressed(Key key, const std::string& text) = 0;
};

} // namespace session
