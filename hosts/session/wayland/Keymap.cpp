#include "hosts/session/wayland/Keymap.h"

#include <algorithm>

#include <sys/mman.h>
#include <unistd.h>

#include <xkbcommon/xkbcommon.h>

namespace session {

namespace {

constexpr std::uint32_t kernelOffset = 8; // between the kernel's key numbers and those of X keymaps

bool isControl(const std::string& text) {
    return text.size() == 1 && (static_cast<unsigned char>(text[0]) < 0x20 || text[0] == 0x7F) &&
           text != "\n";
}

} // namespace

void Keymap::Release::operator()(xkb_context* object) const {
    xkb_context_unref(object);
}
void Keymap::Release::operator()(xkb_keymap* object) const {
    xkb_keymap_unref(object);
}
void Keymap::Release::operator()(xkb_state* object) const {
    xkb_state_unref(object);
}

Keymap::Keymap() = default;
Keymap::~Keymap() = default;

void Keymap::load(int file, std::uint32_t size) {
    // Made when a keyboard first comes: reading its include paths costs memory that a touch screen never
    // needs.
    if (!context_)
        context_.reset(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    void* text = size > 0 ? mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0) : MAP_FAILED;
    close(file);
    if (text == MAP_FAILED)
        return;
    auto* keymap = xkb_keymap_new_from_buffer(context_.get(), static_cast<const char*>(text), size - 1,
                                              XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS);
    munmap(text, size);
    if (!keymap)
        return;
    keymap_.reset(keymap);
    state_.reset(xkb_state_new(keymap));
}

void Keymap::setModifiers(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                          std::uint32_t group) {
    if (state_)
        xkb_state_update_mask(state_.get(), depressed, latched, locked, 0, 0, group);
}

bool Keymap::repeats(std::uint32_t keyNumber) const {
    return keymap_ && xkb_keymap_key_repeats(keymap_.get(), keyNumber + kernelOffset) != 0;
}

/// With these held a key is a command to somebody, never text.
bool Keymap::isCommanding() const {
    const auto isHeld = [this](const char* modifier) {
        return xkb_state_mod_name_is_active(state_.get(), modifier, XKB_STATE_MODS_EFFECTIVE) > 0;
    };
    return std::ranges::any_of(std::initializer_list{XKB_MOD_NAME_CTRL, XKB_MOD_NAME_ALT, XKB_MOD_NAME_LOGO},
                               isHeld);
}

std::optional<Keymap::Stroke> Keymap::stroke(std::uint32_t keyNumber) const {
    if (!state_ || isCommanding())
        return std::nullopt;
    const xkb_keycode_t code = keyNumber + kernelOffset;
    switch (xkb_state_key_get_one_sym(state_.get(), code)) {
    case XKB_KEY_Escape:
        return Stroke{Key::Escape, {}};
    case XKB_KEY_BackSpace:
        return Stroke{Key::Backspace, {}};
    case XKB_KEY_Return:
    case XKB_KEY_KP_Enter:
        return Stroke{Key::Text, "\n"};
    default:
        break;
    }
    const int length = xkb_state_key_get_utf8(state_.get(), code, nullptr, 0);
    if (length <= 0)
        return std::nullopt;
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    xkb_state_key_get_utf8(state_.get(), code, text.data(), text.size());
    text.pop_back();
    if (isControl(text))
        return std::nullopt;
    return Stroke{Key::Text, text};
}

} // namespace session
