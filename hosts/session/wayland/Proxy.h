// Owning pointers to the compositor's objects: each is released by its own request.
#pragma once

#include <memory>

struct wl_buffer;
struct wl_callback;
struct wl_compositor;
struct wl_display;
struct wl_event_queue;
struct wl_keyboard;
struct wl_output;
struct wl_pointer;
struct wl_region;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_shm_pool;
struct wl_subcompositor;
struct wl_subsurface;
struct wl_surface;
struct wl_touch;
struct wp_single_pixel_buffer_manager_v1;
struct wp_viewport;
struct wp_viewporter;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;
struct zwlr_output_power_manager_v1;
struct zwlr_output_power_v1;
struct zwlr_screencopy_frame_v1;
struct zwlr_screencopy_manager_v1;
struct zxdg_output_manager_v1;
struct zxdg_output_v1;

namespace session {

struct ProxyRelease {
    void operator()(wl_buffer* object) const;
    void operator()(wl_callback* object) const;
    void operator()(wl_compositor* object) const;
    void operator()(wl_event_queue* object) const;
    void operator()(wl_keyboard* object) const;
    void operator()(wl_output* object) const;
    void operator()(wl_pointer* object) const;
    void operator()(wl_region* object) const;
    void operator()(wl_registry* object) const;
    void operator()(wl_seat* object) const;
    void operator()(wl_shm* object) const;
    void operator()(wl_shm_pool* object) const;
    void operator()(wl_subcompositor* object) const;
    void operator()(wl_subsurface* object) const;
    void operator()(wl_surface* object) const;
    void operator()(wl_touch* object) const;
    void operator()(wp_single_pixel_buffer_manager_v1* object) const;
    void operator()(wp_viewport* object) const;
    void operator()(wp_viewporter* object) const;
    void operator()(zwlr_foreign_toplevel_handle_v1* object) const;
    void operator()(zwlr_foreign_toplevel_manager_v1* object) const;
    void operator()(zwlr_layer_shell_v1* object) const;
    void operator()(zwlr_layer_surface_v1* object) const;
    void operator()(zwlr_output_power_manager_v1* object) const;
    void operator()(zwlr_output_power_v1* object) const;
    void operator()(zwlr_screencopy_frame_v1* object) const;
    void operator()(zwlr_screencopy_manager_v1* object) const;
    void operator()(zxdg_output_manager_v1* object) const;
    void operator()(zxdg_output_v1* object) const;
};

template <class Object>
using Proxy = std::unique_ptr<Object, ProxyRelease>;

} // namespace session
