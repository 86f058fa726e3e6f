#include "tests/session/parent/ParentShell.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <wayland-server-protocol.h>

#include "xdg-shell-server-protocol.h"

namespace tests {

namespace {

constexpr int frameTime = 16; // milliseconds

std::uint32_t milliseconds() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

void destroy(wl_client*, wl_resource* resource) {
    wl_resource_destroy(resource);
}

wl_resource* make(wl_client* client, const wl_interface& interface, int version, std::uint32_t id,
                  const void* requests, void* data, wl_resource_destroy_func_t gone = nullptr) {
    wl_resource* resource = wl_resource_create(client, &interface, version, id);
    wl_resource_set_implementation(resource, requests, data, gone);
    return resource;
}

} // namespace

struct ParentShell::Surface {
    ParentShell& shell;
    wl_resource* resource;
    wl_resource* buffer = nullptr; // attached, not committed
    std::vector<wl_resource*> frames = {};
    wl_resource* shellSurface = nullptr;
    wl_resource* toplevel = nullptr;
    bool configured = false;
};

/// What the client asks for; whatever a compositor without a screen has no use for is taken and forgotten.
struct ParentShell::Requests {
    static Surface& surface(wl_resource* resource) {
        return *static_cast<Surface*>(wl_resource_get_user_data(resource));
    }
    static ParentShell& shell(wl_resource* resource) {
        return *static_cast<ParentShell*>(wl_resource_get_user_data(resource));
    }
    // ---- Surfaces

    static void attach(wl_client*, wl_resource* resource, wl_resource* buffer, std::int32_t, std::int32_t) {
        surface(resource).buffer = buffer;
    }
    static void frame(wl_client* client, wl_resource* resource, std::uint32_t id) {
        Surface& self = surface(resource);
        self.frames.push_back(
            make(client, wl_callback_interface, 1, id, nullptr, &self.shell,
                 [](wl_resource* callback) { std::erase(shell(callback).frames_, callback); }));
    }
    static void commit(wl_client*, wl_resource* resource) {
        Surface& self = surface(resource);
        if (self.buffer)
            wl_buffer_send_release(std::exchange(self.buffer, nullptr));
        auto& waiting = self.shell.frames_;
        waiting.insert(waiting.end(), self.frames.begin(), self.frames.end());
        self.frames.clear();
        self.shell.askForFrames();
        if (self.toplevel && !std::exchange(self.configured, true))
            self.shell.configure(self);
    }
    static constexpr struct wl_surface_interface surfaces {
        .destroy = destroy, .attach = attach,
        .damage = [](wl_client*, wl_resource*, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {},
        .frame = frame, .set_opaque_region = [](wl_client*, wl_resource*, wl_resource*) {},
        .set_input_region = [](wl_client*, wl_resource*, wl_resource*) {}, .commit = commit,
        .set_buffer_transform = [](wl_client*, wl_resource*, std::int32_t) {},
        .set_buffer_scale = [](wl_client*, wl_resource*, std::int32_t) {},
        .damage_buffer = [](wl_client*, wl_resource*, std::int32_t, std::int32_t, std::int32_t,
                            std::int32_t) {},
        .offset = nullptr
    };
    static void surfaceGone(wl_resource* resource) {
        const std::unique_ptr<Surface> self(&surface(resource));
        self->shell.surfaceGone(resource);
    }

    static constexpr struct wl_region_interface regions {
        .destroy = destroy,
        .add = [](wl_client*, wl_resource*, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {},
        .subtract = [](wl_client*, wl_resource*, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {}
    };
    static constexpr struct wl_compositor_interface compositor {
        .create_surface =
            [](wl_client* client, wl_resource* global, std::uint32_t id) {
                auto* made = new Surface{.shell = shell(global), .resource = nullptr};
                made->resource = make(client, wl_surface_interface, wl_resource_get_version(global), id,
                                      &surfaces, made, surfaceGone);
            },
        .create_region = [](wl_client* client, wl_resource*, std::uint32_t id) {
            make(client, wl_region_interface, 1, id, &regions, nullptr);
        }
    };

    // ---- Windows

    static constexpr struct xdg_toplevel_interface toplevels {
        .destroy = destroy, .set_parent = [](wl_client*, wl_resource*, wl_resource*) {},
        .set_title = [](wl_client*, wl_resource*, const char*) {},
        .set_app_id = [](wl_client*, wl_resource*, const char*) {},
        .show_window_menu = [](wl_client*, wl_resource*, wl_resource*, std::uint32_t, std::int32_t,
                               std::int32_t) {},
        .move = [](wl_client*, wl_resource*, wl_resource*, std::uint32_t) {},
        .resize = [](wl_client*, wl_resource*, wl_resource*, std::uint32_t, std::uint32_t) {},
        .set_max_size = [](wl_client*, wl_resource*, std::int32_t, std::int32_t) {},
        .set_min_size = [](wl_client*, wl_resource*, std::int32_t, std::int32_t) {},
        .set_maximized = [](wl_client*, wl_resource*) {}, .unset_maximized = [](wl_client*, wl_resource*) {},
        .set_fullscreen = [](wl_client*, wl_resource*, wl_resource*) {},
        .unset_fullscreen = [](wl_client*, wl_resource*) {}, .set_minimized = [](wl_client*, wl_resource*) {}
    };
    static void takeToplevel(wl_client* client, wl_resource* shellSurface, std::uint32_t id) {
        Surface& self = surface(shellSurface);
        self.toplevel = make(client, xdg_toplevel_interface, wl_resource_get_version(shellSurface), id,
                             &toplevels, nullptr);
        self.shell.window_ = self.resource;
    }
    static constexpr struct xdg_surface_interface shellSurfaces {
        .destroy = destroy, .get_toplevel = takeToplevel,
        .get_popup = [](wl_client* client, wl_resource*, std::uint32_t, wl_resource*,
                        wl_resource*) { wl_client_post_implementation_error(client, "no popups here"); },
        .set_window_geometry = [](wl_client*, wl_resource*, std::int32_t, std::int32_t, std::int32_t,
                                  std::int32_t) {},
        .ack_configure = [](wl_client*, wl_resource*, std::uint32_t) {}
    };
    static constexpr struct xdg_wm_base_interface windowManager {
        .destroy = destroy,
        .create_positioner =
            [](wl_client* client, wl_resource*, std::uint32_t) {
                wl_client_post_implementation_error(client, "no popups here");
            },
        .get_xdg_surface =
            [](wl_client* client, wl_resource* global, std::uint32_t id, wl_resource* of) {
                surface(of).shellSurface =
                    make(client, xdg_surface_interface, wl_resource_get_version(global), id, &shellSurfaces,
                         &surface(of));
            },
        .pong = [](wl_client*, wl_resource*, std::uint32_t) {}
    };

    static void bindCompositor(wl_client* client, void* data, std::uint32_t version, std::uint32_t id) {
        make(client, wl_compositor_interface, static_cast<int>(version), id, &compositor, data);
    }
    static void bindWindowManager(wl_client* client, void* data, std::uint32_t version, std::uint32_t id) {
        make(client, xdg_wm_base_interface, static_cast<int>(version), id, &windowManager, data);
    }
    static int frameDue(void* data) {
        auto& self = *static_cast<ParentShell*>(data);
        self.timerRuns_ = false;
        for (wl_resource* callback : std::exchange(self.frames_, {})) {
            wl_callback_send_done(callback, milliseconds());
            wl_resource_destroy(callback);
        }
        return 0;
    }
};

ParentShell::ParentShell(wl_display* display, int width, int height)
    : width_(width),
      height_(height),
      timer_(wl_event_loop_add_timer(wl_display_get_event_loop(display), Requests::frameDue, this)) {
    wl_display_init_shm(display);
    wl_global_create(display, &wl_compositor_interface, 4, this, Requests::bindCompositor);
    wl_global_create(display, &xdg_wm_base_interface, 1, this, Requests::bindWindowManager);
}

ParentShell::~ParentShell() {
    wl_event_source_remove(timer_);
}

void ParentShell::surfaceGone(wl_resource* surface) {
    if (surface == window_)
        window_ = nullptr;
}

void ParentShell::configure(Surface& surface) const {
    wl_array none;
    wl_array_init(&none);
    xdg_toplevel_send_configure(surface.toplevel, width_, height_, &none);
    xdg_surface_send_configure(surface.shellSurface, 1);
}

void ParentShell::askForFrames() {
    if (!frames_.empty() && !std::exchange(timerRuns_, true))
        wl_event_source_timer_update(timer_, frameTime);
}

} // namespace tests
