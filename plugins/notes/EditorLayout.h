// Where the parts of the editor lie. While the keyboard is up the text keeps out of its way: a plug-in is not
// told how high it is, so the usual heights are left free, and a low panel gives its bar to the text.
#pragma once

#include "VelaPlugin.h"

namespace notesplugin {

struct EditorLayout {
    bool barHidden = false; // then only the button that ends the editing stays, beside the text
    vela::plugin::Rect back;
    vela::plugin::Rect status;
    vela::plugin::Rect action; // "Delete", or "Done" while editing
    vela::plugin::Rect text;
};

EditorLayout layOutEditor(vela::plugin::Size panel, bool editing);

} // namespace notesplugin
