// A surface of the compositor's overlay layer, over applications and their panels.
//
// It exists without being seen until the compositor has said how large it may be; whatever is shown on it
// before then appears with its first frame.
#pragma once

#include "hosts/session/surfaces/SurfacePiece.h"
#include "hosts/session/wayland/Output.h"

#include <functional>

namespace session {

enum class KeyboardUse { None, Exclusive };

class LayerSurface {
public:
    /// Everything outlives this object. `ready` is called when it may be shown, and again after each change
    /// of size; `closed` when the compositor takes it away.
    LayerSurface(Globals& globals, SolidPixels& pixels, const Output& output, const char* scope,
                 std::function<void()> ready, std::function<void()> closed);
    ~LayerSurface();
    LayerSurface(const LayerSurface&) = delete;
    LayerSurface& operator=(const LayerSurface&) = delete;

    wl_surface* surface() const { return surface_.get(); }
    /// Where on the output it lies; takes effect with the next commit.
    void place(const PointRect& frame);
    /// Where it takes touches, from its top left corner on.
    void setTouchable(const std::vector<PointRect>& areas);
    void setKeyboardUse(KeyboardUse use);
    bool isReady() const { return ready_; }
    /// Before the first configuration this only asks for one.
    void commit();

private:
    struct Listener;
    friend struct Listener;
    void attachNothing();

    Globals& globals_;
    SolidPixels& pixels_;
    Proxy<wl_surface> surface_;
    Proxy<wp_viewport> viewport_;
    Proxy<zwlr_layer_surface_v1> layer_;
    std::function<void()> readyCallback_;
    std::function<void()> closed_;
    PlainBuffers plain_; // without a viewporter
    PointRect frame_;
    bool ready_ = false;
    bool attached_ = false;
};

} // namespace session
