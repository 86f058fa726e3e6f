#include "tests/session/parent/ParentSeat.h"

#include <wayland-server-protocol.h>

namespace tests {

struct ParentSeat::Requests {
    static void destroy(wl_client*, wl_resource* resource) { wl_resource_destroy(resource); }
    static ParentSeat& self(wl_resource* resource) {
        return *static_cast<ParentSeat*>(wl_resource_get_user_data(resource));
    }
    static constexpr struct wl_touch_interface touch { destroy };
    static void takeTouch(wl_client* client, wl_resource* seat, std::uint32_t id) {
        wl_resource* made =
            wl_resource_create(client, &wl_touch_interface, wl_resource_get_version(seat), id);
        wl_resource_set_implementation(made, &touch, &self(seat),
                                       [](wl_resource* gone) { std::erase(self(gone).touchScreens_, gone); });
        self(seat).touchScreens_.push_back(made);
    }
    static void refuse(wl_client* client, wl_resource*, std::uint32_t) {
        wl_client_post_implementation_error(client, "there is a touch screen and nothing else");
    }
    static constexpr struct wl_seat_interface seat {
        .get_pointer = refuse, .get_keyboard = refuse, .get_touch = takeTouch, .release = destroy
    };
    static void bind(wl_client* client, void* data, std::uint32_t version, std::uint32_t id) {
        wl_resource* made = wl_resource_create(client, &wl_seat_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(made, &seat, data,
                                       [](wl_resource* gone) { std::erase(self(gone).seats_, gone); });
        self(made).seats_.push_back(made);
        wl_seat_send_capabilities(made, self(made).capabilities_);
        wl_seat_send_name(made, "parent");
    }
};

ParentSeat::ParentSeat(wl_display* display, const ParentShell& shell) : display_(display), shell_(shell) {
    wl_global_create(display, &wl_seat_interface, 5, this, Requests::bind);
}

void ParentSeat::announce(std::uint32_t capabilities) {
    capabilities_ = capabilities;
    for (wl_resource* seat : seats_)
        wl_seat_send_capabilities(seat, capabilities);
}

void ParentSeat::plugIn() {
    announce(WL_SEAT_CAPABILITY_TOUCH);
}

void ParentSeat::plugOut() {
    announce(0);
}

void ParentSeat::down(int finger, double x, double y, std::uint32_t time) {
    for (wl_resource* screen : touchScreens_) {
        wl_touch_send_down(screen, wl_display_next_serial(display_), time, shell_.window(), finger,
                           wl_fixed_from_double(x), wl_fixed_from_double(y));
        wl_touch_send_frame(screen);
    }
}

void ParentSeat::motion(int finger, double x, double y, std::uint32_t time) {
    for (wl_resource* screen : touchScreens_) {
        wl_touch_send_motion(screen, time, finger, wl_fixed_from_double(x), wl_fixed_from_double(y));
        wl_touch_send_frame(screen);
    }
}

void ParentSeat::up(int finger, std::uint32_t time) {
    for (wl_resource* screen : touchScreens_) {
        wl_touch_send_up(screen, wl_display_next_serial(display_), time, finger);
        wl_touch_send_frame(screen);
    }
}

void ParentSeat::cancel() {
    for (wl_resource* screen : touchScreens_)
        wl_touch_send_cancel(screen);
}

} // namespace tests
