// The user's hands as the compositor sees them: pointer, touch screen and keyboard of one seat.
#pragma once

#include "hosts/session/wayland/InputReceiver.h"
#include "hosts/session/wayland/KeyRepeat.h"
#include "hosts/session/wayland/Keymap.h"
#include "hosts/session/wayland/Proxy.h"

#include <set>

namespace session {

class Seat {
public:
    /// The receiver outlives this object.
    Seat(Proxy<wl_seat> seat, InputReceiver& receiver);
    ~Seat();
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

private:
    struct Listener;
    friend struct Listener;
    void takeCapabilities(std::uint32_t capabilities);
    void cancelTouches();
    void cancelButton();
    void keyDown(std::uint32_t number);
    std::optional<Keymap::Stroke> strike(std::uint32_t number);

    Proxy<wl_seat> seat_;
    InputReceiver& receiver_;
    Proxy<wl_pointer> pointer_;
    Proxy<wl_touch> touch_;
    Proxy<wl_keyboard> keyboard_;
    Keymap keymap_;
    KeyRepeat repeat_{[this](std::uint32_t key) { strike(key); }};
    std::set<std::int32_t> touches_; // the fingers on the touch screen
    wl_surface* pointerSurface_ = nullptr;
    toolkit::Point pointerPoint_;
    bool buttonDown_ = false;
};

} // namespace session
