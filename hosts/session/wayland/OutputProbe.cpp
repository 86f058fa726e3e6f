#include "hosts/session/wayland/OutputProbe.h"

#include "hosts/session/wayland/Protocols.h"

#include <utility>

namespace session {

struct OutputProbe::Listener {
    static void configure(void* data, zwlr_layer_surface_v1*, std::uint32_t, std::uint32_t width,
                          std::uint32_t height) {
        const auto answered = std::exchange(static_cast<OutputProbe*>(data)->answered_, nullptr);
        if (answered)
            answered({static_cast<double>(width), static_cast<double>(height)});
    }
    /// The output goes, which is told elsewhere.
    static void closed(void*, zwlr_layer_surface_v1*) {}
    static constexpr zwlr_layer_surface_v1_listener layer{configure, closed};
};

OutputProbe::OutputProbe(const Means& means, wl_output& output, std::function<void(toolkit::Size)> answered)
    : surface_(wl_compositor_create_surface(means.compositor)),
      layer_(zwlr_layer_shell_v1_get_layer_surface(means.layerShell, surface_.get(), &output,
                                                   ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "vela-probe")),
      answered_(std::move(answered)) {
    zwlr_layer_surface_v1_add_listener(layer_.get(), &Listener::layer, this);
    zwlr_layer_surface_v1_set_anchor(
        layer_.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                          ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT);
    // Over the room that others have made for themselves as well.
    zwlr_layer_surface_v1_set_exclusive_zone(layer_.get(), -1);
    wl_surface_commit(surface_.get());
}

OutputProbe::~OutputProbe() = default;

} // namespace session
