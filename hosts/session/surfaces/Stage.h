// The clear surface over the whole screen on which the product's windows stand while one can be seen.
//
// Each window has pieces of its own, which all change at once with the stage's frame. Frames follow the
// compositor's: after one the stage is busy until the compositor asks for the next. Points of the screen.
#pragma once

#include "hosts/session/surfaces/LayerSurface.h"
#include "hosts/session/surfaces/WindowPieces.h"

#include <map>

namespace session {

class Stage {
public:
    struct Callbacks {
        std::function<void()> frameDue; // it is no longer busy
        std::function<void()> closed;   // the compositor has taken it away
    };
    /// For an output of `screen` points; another size takes another stage. Everything outlives this object.
    Stage(Globals& globals, SolidPixels& pixels, Glass& glass, const Output& output, toolkit::Size screen,
          Callbacks callbacks);

    wl_surface* surface() const { return surface_.surface(); }
    toolkit::Size screen() const { return screen_; }
    bool isBusy() const { return frame_ != nullptr; }
    /// Shows the windows, back to front, and takes touches where one of them does.
    void show(const std::vector<toolkit::SeparateWindow>& windows);
    void setKeyboardUse(KeyboardUse use);

private:
    void stack(const std::vector<std::uint64_t>& order);
    void takeTouches(const std::vector<toolkit::SeparateWindow>& windows);
    void commitFrame();

    Globals& globals_;
    SolidPixels& pixels_;
    Glass& glass_;
    const toolkit::Size screen_;
    Callbacks callbacks_;
    /// By the window's layer. They go after the stage itself: phoc 0.24 does not survive the other order.
    std::map<std::uint64_t, WindowPieces> windows_;
    LayerSurface surface_;
    std::vector<std::uint64_t> order_;
    std::vector<PointRect> touchable_;
    KeyboardUse keyboardUse_ = KeyboardUse::None;
    Proxy<wl_callback> frame_;
};

} // namespace session
