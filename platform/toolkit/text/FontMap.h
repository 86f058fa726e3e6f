// The fonts that text is laid out with: the private configuration behind setFontDirectory(). Main thread
// only.
#pragma once

#include "platform/toolkit/text/Font.h"

#include <pango/pango.h>

namespace toolkit {

/// A context that lays text out without hinting and on fractions of a pixel, so that one layout fits every
/// scale. It belongs to the library and is replaced by setFontDirectory(); a layout made from it keeps it
/// alive.
PangoContext* sharedTextContext();

/// To be freed with pango_font_description_free.
PangoFontDescription* makeFontDescription(const Font& font);

} // namespace toolkit
