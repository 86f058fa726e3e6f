// A keyboard of a compositor's seat that this process types on.
#pragma once

#include <memory>
#include <string>

struct wl_seat;
struct xkb_state;
struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace tests {

class VirtualKeyboard {
public:
    /// Throws std::runtime_error when there is no such layout.
    VirtualKeyboard(zwp_virtual_keyboard_manager_v1& manager, wl_seat& seat, const std::string& layout);
    ~VirtualKeyboard();
    VirtualKeyboard(const VirtualKeyboard&) = delete;
    VirtualKeyboard& operator=(const VirtualKeyboard&) = delete;

    /// Keys count as the kernel's. A modifier holds while it is down.
    void press(unsigned key);
    void release(unsigned key);

private:
    struct Release {
        void operator()(xkb_state* state) const;
    };
    void move(unsigned key, bool down);

    zwp_virtual_keyboard_v1* keyboard_;
    std::unique_ptr<xkb_state, Release> state_;
};

} // namespace tests
