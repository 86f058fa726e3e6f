#include "hosts/session/wayland/Seat.h"

#include "hosts/session/wayland/Protocols.h"

#include <utility>

#include <linux/input-event-codes.h>
#include <unistd.h>

namespace session {

namespace {

toolkit::Point pointOf(wl_fixed_t x, wl_fixed_t y) {
    return {wl_fixed_to_double(x), wl_fixed_to_double(y)};
}

} // namespace

struct Seat::Listener {
    static Seat& self(void* data) { return *static_cast<Seat*>(data); }

    static void capabilities(void* data, wl_seat*, std::uint32_t capabilities) {
        self(data).takeCapabilities(capabilities);
    }
    static void name(void*, wl_seat*, const char*) {}
    static constexpr wl_seat_listener seat{capabilities, name};

    // Pointer. Without a cursor of its own the surface keeps the one that was there.
    static void entered(void* data, wl_pointer*, std::uint32_t, wl_surface* surface, wl_fixed_t x,
                        wl_fixed_t y) {
        self(data).cancelButton();
        self(data).pointerSurface_ = surface;
        self(data).pointerPoint_ = pointOf(x, y);
    }
    static void left(void* data, wl_pointer*, std::uint32_t, wl_surface*) {
        self(data).cancelButton();
        self(data).pointerSurface_ = nullptr;
    }
    static void moved(void* data, wl_pointer*, std::uint32_t time, wl_fixed_t x, wl_fixed_t y) {
        self(data).pointerPoint_ = pointOf(x, y);
        if (self(data).buttonDown_)
            self(data).receiver_.fingerMoved(pointerFinger, self(data).pointerPoint_, time);
    }
    static void button(void* data, wl_pointer*, std::uint32_t, std::uint32_t time, std::uint32_t button,
                       std::uint32_t state) {
        if (button != BTN_LEFT)
            return;
        const bool down = state == WL_POINTER_BUTTON_STATE_PRESSED;
        if (std::exchange(self(data).buttonDown_, down) == down)
            return;
        if (down)
            self(data).receiver_.fingerDown(pointerFinger, self(data).pointerSurface_,
                                            self(data).pointerPoint_, time);
        else
            self(data).receiver_.fingerUp(pointerFinger, time);
    }
    static void axis(void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {}
    static void pointerFrame(void*, wl_pointer*) {}
    static void axisSource(void*, wl_pointer*, std::uint32_t) {}
    static void axisStop(void*, wl_pointer*, std::uint32_t, std::uint32_t) {}
    static void axisDiscrete(void*, wl_pointer*, std::uint32_t, std::int32_t) {}
    static void axisValue120(void*, wl_pointer*, std::uint32_t, std::int32_t) {}
    static constexpr wl_pointer_listener pointer{.enter = entered,
                                                 .leave = left,
                                                 .motion = moved,
                                                 .button = button,
                                                 .axis = axis,
                                                 .frame = pointerFrame,
                                                 .axis_source = axisSource,
                                                 .axis_stop = axisStop,
                                                 .axis_discrete = axisDiscrete,
                                                 .axis_value120 = axisValue120};

    // Touch screen.
    static void down(void* data, wl_touch*, std::uint32_t, std::uint32_t time, wl_surface* surface,
                     std::int32_t id, wl_fixed_t x, wl_fixed_t y) {
        self(data).touches_.insert(id);
        self(data).receiver_.fingerDown(id, surface, pointOf(x, y), time);
    }
    static void up(void* data, wl_touch*, std::uint32_t, std::uint32_t time, std::int32_t id) {
        self(data).touches_.erase(id);
        self(data).receiver_.fingerUp(id, time);
    }
    static void motion(void* data, wl_touch*, std::uint32_t time, std::int32_t id, wl_fixed_t x,
                       wl_fixed_t y) {
        self(data).receiver_.fingerMoved(id, pointOf(x, y), time);
    }
    static void touchFrame(void*, wl_touch*) {}
    static void cancel(void* data, wl_touch*) { self(data).cancelTouches(); }
    static void shape(void*, wl_touch*, std::int32_t, wl_fixed_t, wl_fixed_t) {}
    static void orientation(void*, wl_touch*, std::int32_t, wl_fixed_t) {}
    static constexpr wl_touch_listener touch{down, up, motion, touchFrame, cancel, shape, orientation};

    // Keyboard.
    static void keymap(void* data, wl_keyboard*, std::uint32_t format, int file, std::uint32_t size) {
        if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1)
            self(data).keymap_.load(file, size);
        else
            close(file);
    }
    static void focused(void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {}
    static void unfocused(void* data, wl_keyboard*, std::uint32_t, wl_surface*) { self(data).repeat_.stop(); }
    static void key(void* data, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t number,
                    std::uint32_t state) {
        if (state == WL_KEYBOARD_KEY_STATE_PRESSED)
            self(data).keyDown(number);
        else
            self(data).repeat_.release(number);
    }
    static void modifiers(void* data, wl_keyboard*, std::uint32_t, std::uint32_t depressed,
                          std::uint32_t latched, std::uint32_t locked, std::uint32_t group) {
        self(data).keymap_.setModifiers(depressed, latched, locked, group);
    }
    static void repeat(void* data, wl_keyboard*, std::int32_t rate, std::int32_t delay) {
        self(data).repeat_.setPace(rate, delay / 1000.0);
    }
    static constexpr wl_keyboard_listener keyboard{keymap, focused, unfocused, key, modifiers, repeat};
};

Seat::Seat(Proxy<wl_seat> seat, InputReceiver& receiver) : seat_(std::move(seat)), receiver_(receiver) {
    wl_seat_add_listener(seat_.get(), &Listener::seat, this);
}

Seat::~Seat() = default;

void Seat::takeCapabilities(std::uint32_t capabilities) {
    const auto take = [&](std::uint32_t capability, auto& device, auto get, const auto& listener,
                          auto addListener) {
        const bool there = capabilities & capability;
        if (!there) {
            device.reset();
        } else if (!device) {
            device.reset(get(seat_.get()));
            addListener(device.get(), &listener, this);
        }
    };
    take(WL_SEAT_CAPABILITY_POINTER, pointer_, wl_seat_get_pointer, Listener::pointer,
         wl_pointer_add_listener);
    take(WL_SEAT_CAPABILITY_TOUCH, touch_, wl_seat_get_touch, Listener::touch, wl_touch_add_listener);
    take(WL_SEAT_CAPABILITY_KEYBOARD, keyboard_, wl_seat_get_keyboard, Listener::keyboard,
         wl_keyboard_add_listener);
    // What a device was doing when it went nobody will tell the end of.
    if (!pointer_)
        cancelButton();
    if (!touch_)
        cancelTouches();
    if (!keyboard_)
        repeat_.stop();
}

void Seat::cancelTouches() {
    for (const std::int32_t finger : std::exchange(touches_, {}))
        receiver_.fingerCancelled(finger);
}

/// While the button is held the pointer stays where it was pressed, unless that is gone.
void Seat::cancelButton() {
    if (std::exchange(buttonDown_, false))
        receiver_.fingerCancelled(pointerFinger);
}

void Seat::keyDown(std::uint32_t number) {
    const auto stroke = strike(number);
    if (!keymap_.repeats(number))
        return; // a modifier leaves the held key alone
    if (stroke && stroke->key != Key::Escape)
        repeat_.start(number);
    else
        repeat_.stop();
}

std::optional<Keymap::Stroke> Seat::strike(std::uint32_t number) {
    auto stroke = keymap_.stroke(number);
    if (stroke)
        receiver_.keyPressed(stroke->key, stroke->text);
    return stroke;
}

} // namespace session
