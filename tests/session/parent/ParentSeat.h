// A parent compositor's seat: a touch screen that can be plugged in and out, and whatever fingers a test puts
// on it. Used in the compositor's thread alone.
#pragma once

#include "tests/session/parent/ParentShell.h"

#include <vector>

namespace tests {

class ParentSeat {
public:
    /// Both outlive this object.
    ParentSeat(wl_display* display, const ParentShell& shell);
    ParentSeat(const ParentSeat&) = delete;
    ParentSeat& operator=(const ParentSeat&) = delete;

    void plugIn();
    void plugOut();
    /// Whether a client listens to the touch screen.
    bool isHeard() const { return !touchScreens_.empty(); }

    /// Each is a frame of its own. Pixels of the window, milliseconds.
    void down(int finger, double x, double y, std::uint32_t time);
    void motion(int finger, double x, double y, std::uint32_t time);
    void up(int finger, std::uint32_t time);
    void cancel();

private:
    struct Requests;
    friend struct Requests;

    void announce(std::uint32_t capabilities);

    wl_display* display_;
    const ParentShell& shell_;
    std::uint32_t capabilities_ = 0;
    std::vector<wl_resource*> seats_;
    std::vector<wl_resource*> touchScreens_;
};

} // namespace tests
