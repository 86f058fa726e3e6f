#include "hosts/session/surfaces/LayerSurface.h"

#include "hosts/session/wayland/Protocols.h"

namespace session {

struct LayerSurface::Listener {
    static void configure(void* data, zwlr_layer_surface_v1* layer, std::uint32_t serial, std::uint32_t,
                          std::uint32_t) {
        auto& self = *static_cast<LayerSurface*>(data);
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        self.ready_ = true;
        self.readyCallback_();
    }
    static void closed(void* data, zwlr_layer_surface_v1*) { static_cast<LayerSurface*>(data)->closed_(); }
    static constexpr zwlr_layer_surface_v1_listener layer{configure, closed};
};

LayerSurface::LayerSurface(Globals& globals, SolidPixels& pixels, const Output& output, const char* scope,
                           std::function<void()> ready, std::function<void()> closed)
    : globals_(globals),
      pixels_(pixels),
      surface_(wl_compositor_create_surface(globals.compositor.get())),
      layer_(zwlr_layer_shell_v1_get_layer_surface(globals.layerShell.get(), surface_.get(), output.object(),
                                                   ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, scope)),
      readyCallback_(std::move(ready)),
      closed_(std::move(closed)),
      plain_(*globals.shm) {
    if (globals.viewporter)
        viewport_.reset(wp_viewporter_get_viewport(globals.viewporter.get(), surface_.get()));
    zwlr_layer_surface_v1_add_listener(layer_.get(), &Listener::layer, this);
    zwlr_layer_surface_v1_set_anchor(layer_.get(),
                                     ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    // Neither makes room for itself nor keeps clear of the room that others have made.
    zwlr_layer_surface_v1_set_exclusive_zone(layer_.get(), -1);
    setKeyboardUse(KeyboardUse::None);
}

LayerSurface::~LayerSurface() = default;

void LayerSurface::place(const PointRect& frame) {
    if (frame == frame_)
        return;
    zwlr_layer_surface_v1_set_size(layer_.get(), static_cast<std::uint32_t>(frame.width),
                                   static_cast<std::uint32_t>(frame.height));
    zwlr_layer_surface_v1_set_margin(layer_.get(), frame.y, 0, 0, frame.x);
    attached_ = attached_ && frame.width == frame_.width && frame.height == frame_.height;
    frame_ = frame;
}

void LayerSurface::setTouchable(const std::vector<PointRect>& areas) {
    const Proxy<wl_region> region(wl_compositor_create_region(globals_.compositor.get()));
    for (const PointRect& area : areas)
        wl_region_add(region.get(), area.x, area.y, area.width, area.height);
    wl_surface_set_input_region(surface_.get(), region.get());
}

void LayerSurface::setKeyboardUse(KeyboardUse use) {
    zwlr_layer_surface_v1_set_keyboard_interactivity(layer_.get(), use == KeyboardUse::Exclusive ? 1 : 0);
}

/// One clear pixel, scaled over all of it; as many as it has points where nothing can be scaled.
void LayerSurface::attachNothing() {
    if (viewport_) {
        wl_surface_attach(surface_.get(), pixels_.buffer(0), 0, 0);
        wp_viewport_set_destination(viewport_.get(), frame_.width, frame_.height);
    } else {
        ShmBuffer* buffer = plain_.filled(0, frame_.width, frame_.height);
        if (!buffer)
            return;
        wl_surface_attach(surface_.get(), buffer->object(), 0, 0);
        buffer->setBusy();
    }
    wl_surface_damage_buffer(surface_.get(), 0, 0, frame_.width, frame_.height);
    attached_ = true;
}

void LayerSurface::commit() {
    if (ready_ && !attached_)
        attachNothing();
    wl_surface_commit(surface_.get());
}

} // namespace session
