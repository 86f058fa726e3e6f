// What the keyboard's keys type under the compositor's keymap.
#pragma once

#include "hosts/session/wayland/InputReceiver.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace session {

class Keymap {
public:
    Keymap();
    ~Keymap();

    /// Takes over the file, `size` bytes of text in the format of X keymaps. An unusable one changes nothing.
    void load(int file, std::uint32_t size);
    void setModifiers(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                      std::uint32_t group);

    struct Stroke {
        Key key;
        std::string text; // UTF-8
    };
    /// What pressing the key of that number (as the kernel counts them) means; nothing for a key that types
    /// nothing, and for every key while Control, Alt or the logo key is held.
    std::optional<Stroke> stroke(std::uint32_t keyNumber) const;
    /// Whether it strikes again while it is held.
    bool repeats(std::uint32_t keyNumber) const;

private:
    bool isCommanding() const;

    struct Release {
        void operator()(xkb_context* object) const;
        void operator()(xkb_keymap* object) const;
        void operator()(xkb_state* object) const;
    };
    std::unique_ptr<xkb_context, Release> context_;
    std::unique_ptr<xkb_keymap, Release> keymap_;
    std::unique_ptr<xkb_state, Release> state_;
};

} // namespace session
