// The user's hands as the compositor sees them: pointer, touch screen and keyboard of one seat.
#pragma once

#include "hosts/session/wayland/InputReceiver.h"
#include "hosts/session/wayland/Keymap.h"
#include "hosts/session/wayland/Proxy.h"

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

    Proxy<wl_seat> seat_;
    InputReceiver& receiver_;
    Proxy<wl_pointer> pointer_;
    Proxy<wl_touch> touch_;
    Proxy<wl_keyboard> keyboard_;
    Keymap keymap_;
    wl_surface* pointerSurface_ = nullptr;
    toolkit::Point pointerPoint_;
    bool buttonDown_ = false;
};

} // namespace session
