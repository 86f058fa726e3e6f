#include "hosts/session/wayland/Proxy.h"

#include "hosts/session/wayland/Protocols.h"

namespace session {

void ProxyRelease::operator()(wl_buffer* object) const {
    wl_buffer_destroy(object);
}
void ProxyRelease::operator()(wl_callback* object) const {
    wl_callback_destroy(object);
}
void ProxyRelease::operator()(wl_compositor* object) const {
    wl_compositor_destroy(object);
}
void ProxyRelease::operator()(wl_event_queue* object) const {
    wl_event_queue_destroy(object);
}
void ProxyRelease::operator()(wl_keyboard* object) const {
    wl_keyboard_release(object);
}
void ProxyRelease::operator()(wl_output* object) const {
    wl_output_destroy(object);
}
void ProxyRelease::operator()(wl_pointer* object) const {
    wl_pointer_release(object);
}
void ProxyRelease::operator()(wl_region* object) const {
    wl_region_destroy(object);
}
void ProxyRelease::operator()(wl_registry* object) const {
    wl_registry_destroy(object);
}
void ProxyRelease::operator()(wl_seat* object) const {
    wl_seat_destroy(object);
}
void ProxyRelease::operator()(wl_shm* object) const {
    wl_shm_destroy(object);
}
void ProxyRelease::operator()(wl_shm_pool* object) const {
    wl_shm_pool_destroy(object);
}
void ProxyRelease::operator()(wl_subcompositor* object) const {
    wl_subcompositor_destroy(object);
}
void ProxyRelease::operator()(wl_subsurface* object) const {
    wl_subsurface_destroy(object);
}
void ProxyRelease::operator()(wl_surface* object) const {
    wl_surface_destroy(object);
}
void ProxyRelease::operator()(wl_touch* object) const {
    wl_touch_release(object);
}
void ProxyRelease::operator()(wp_single_pixel_buffer_manager_v1* object) const {
    wp_single_pixel_buffer_manager_v1_destroy(object);
}
void ProxyRelease::operator()(wp_viewport* object) const {
    wp_viewport_destroy(object);
}
void ProxyRelease::operator()(wp_viewporter* object) const {
    wp_viewporter_destroy(object);
}
void ProxyRelease::operator()(zwlr_foreign_toplevel_handle_v1* object) const {
    zwlr_foreign_toplevel_handle_v1_destroy(object);
}
void ProxyRelease::operator()(zwlr_foreign_toplevel_manager_v1* object) const {
    zwlr_foreign_toplevel_manager_v1_destroy(object);
}
void ProxyRelease::operator()(zwlr_layer_shell_v1* object) const {
    if (zwlr_layer_shell_v1_get_version(object) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        zwlr_layer_shell_v1_destroy(object);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(object));
}
void ProxyRelease::operator()(zwlr_layer_surface_v1* object) const {
    zwlr_layer_surface_v1_destroy(object);
}
void ProxyRelease::operator()(zwlr_output_power_manager_v1* object) const {
    zwlr_output_power_manager_v1_destroy(object);
}
void ProxyRelease::operator()(zwlr_output_power_v1* object) const {
    zwlr_output_power_v1_destroy(object);
}
void ProxyRelease::operator()(zwlr_screencopy_frame_v1* object) const {
    zwlr_screencopy_frame_v1_destroy(object);
}
void ProxyRelease::operator()(zwlr_screencopy_manager_v1* object) const {
    zwlr_screencopy_manager_v1_destroy(object);
}
void ProxyRelease::operator()(zxdg_output_manager_v1* object) const {
    zxdg_output_manager_v1_destroy(object);
}
void ProxyRelease::operator()(zxdg_output_v1* object) const {
    zxdg_output_v1_destroy(object);
}

} // namespace session
