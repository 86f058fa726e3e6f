#include "tests/session/VirtualKeyboard.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include <sys/mman.h>
#include <unistd.h>

#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include "virtual-keyboard-unstable-v1-client-protocol.h"

namespace tests {

namespace {

constexpr unsigned kernelOffset = 8; // between the kernel's key numbers and those of X keymaps

std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> makeKeymap(const std::string& layout) {
    xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    const xkb_rule_names names{nullptr, nullptr, layout.c_str(), nullptr, nullptr};
    xkb_keymap* keymap = xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
    xkb_context_unref(context);
    if (!keymap)
        throw std::runtime_error("no such keyboard layout");
    return {keymap, xkb_keymap_unref};
}

void send(zwp_virtual_keyboard_v1* keyboard, xkb_keymap* keymap) {
    char* text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
    const std::string content(text);
    std::free(text);
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    const auto size = content.size() + 1; // with the zero
    if (write(file, content.c_str(), size) != static_cast<ssize_t>(size))
        throw std::runtime_error("no memory for a keymap");
    zwp_virtual_keyboard_v1_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                   static_cast<std::uint32_t>(size));
    close(file);
}

std::uint32_t milliseconds() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

} // namespace

void VirtualKeyboard::Release::operator()(xkb_state* state) const {
    xkb_state_unref(state);
}

VirtualKeyboard::VirtualKeyboard(zwp_virtual_keyboard_manager_v1& manager, wl_seat& seat,
                                 const std::string& layout)
    : keyboard_(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(&manager, &seat)) {
    const auto keymap = makeKeymap(layout);
    state_.reset(xkb_state_new(keymap.get()));
    send(keyboard_, keymap.get());
}

VirtualKeyboard::~VirtualKeyboard() {
    zwp_virtual_keyboard_v1_destroy(keyboard_);
}

void VirtualKeyboard::press(unsigned key) {
    move(key, true);
}

void VirtualKeyboard::release(unsigned key) {
    move(key, false);
}

void VirtualKeyboard::move(unsigned key, bool down) {
    zwp_virtual_keyboard_v1_key(keyboard_, milliseconds(), key,
                                down ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
    const auto changed =
        xkb_state_update_key(state_.get(), key + kernelOffset, down ? XKB_KEY_DOWN : XKB_KEY_UP);
    if (changed == 0)
        return;
    const auto modifiers = [this](xkb_state_component component) {
        return xkb_state_serialize_mods(state_.get(), component);
    };
    zwp_virtual_keyboard_v1_modifiers(keyboard_, modifiers(XKB_STATE_MODS_DEPRESSED),
                                      modifiers(XKB_STATE_MODS_LATCHED), modifiers(XKB_STATE_MODS_LOCKED),
                                      xkb_state_serialize_layout(state_.get(), XKB_STATE_LAYOUT_EFFECTIVE));
}

} // namespace tests
