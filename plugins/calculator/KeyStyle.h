// What the keys look like.
#pragma once

#include "Key.h"
#include "VelaPlugin.h"

#include <optional>
#include <string_view>

namespace calculatorplugin {

/// What a key shows besides its own lettering.
struct KeyAppearance {
    bool isPressed = false;
    bool isAwaiting = false;   // the operator whose number is awaited
    bool clearsNumber = false; // for the clear key: "C" instead of "AC"
    friend bool operator==(const KeyAppearance&, const KeyAppearance&) = default;
};

void drawKey(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, Key key,
             const KeyAppearance& appearance);

} // namespace calculatorplugin
