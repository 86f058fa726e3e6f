// Which keys lie where on the on-screen keyboard: its pages as rows of keys with relative widths.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

#include <string>
#include <vector>

namespace phone {

enum class KeyboardPage { Letters, Digits, Symbols };
enum class KeyRole { Text, Space, Return, Backspace, Shift, Page, Hide };

struct KeyPlace {
    KeyRole role = KeyRole::Text;
    std::string text;                          // what a text key types, without shift
    KeyboardPage page = KeyboardPage::Letters; // where a page key leads
    toolkit::Rect frame;                       // points, in the keyboard
};

/// The keys of a page on a keyboard of that size.
std::vector<KeyPlace> layOutKeys(KeyboardPage page, toolkit::Size size);

} // namespace phone
