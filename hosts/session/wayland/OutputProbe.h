// Finds out how many points an output has where no protocol tells: an empty surface that is to cover all of
// it, and is never seen, is told its size.
#pragma once

#include "hosts/session/wayland/Proxy.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <functional>

namespace session {

class OutputProbe {
public:
    /// The globals that it needs.
    struct Means {
        wl_compositor* compositor = nullptr;
        zwlr_layer_shell_v1* layerShell = nullptr;
    };
    /// `answered` is called once, with the size in points, and may end this object.
    OutputProbe(const Means& means, wl_output& output, std::function<void(toolkit::Size)> answered);
    ~OutputProbe();
    OutputProbe(const OutputProbe&) = delete;
    OutputProbe& operator=(const OutputProbe&) = delete;

private:
    struct Listener;
    friend struct Listener;

    Proxy<wl_surface> surface_;
    Proxy<zwlr_layer_surface_v1> layer_;
    std::function<void(toolkit::Size)> answered_;
};

} // namespace session
