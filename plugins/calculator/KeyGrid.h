// Where the display and the keys lie in a view of some size: on a tall one under each other in four columns,
// on a wide one in six.
#pragma once

#include "Key.h"
#include "VelaPlugin.h"

#include <vector>

namespace calculatorplugin {

struct PlacedKey {
    Key key;
    /// All of it takes touches; the key is drawn a little smaller.
    vela::plugin::Rect frame;
};

struct KeyGrid {
    vela::plugin::Rect display;
    std::vector<PlacedKey> keys;

    static KeyGrid in(vela::plugin::Rect bounds);
};

} // namespace calculatorplugin
