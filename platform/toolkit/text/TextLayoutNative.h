// What a TextLayout is made of. Only for text and rendering.
#pragma once

#include "platform/toolkit/text/TextLayout.h"

#include <pango/pango.h>

#include <vector>

namespace toolkit {

struct TextLayout::Native {
    /// The whole text is one piece; text that is cut off after a number of lines is the lines before the last
    /// as one piece and the last line, with its ellipsis, as another.
    struct Piece {
        PangoLayout* layout = nullptr; // owned
        double y = 0;                  // points below the top
        std::size_t start = 0;         // byte offset in the text
        std::size_t length = 0;        // bytes of the text that the piece stands for
    };

    std::string text;
    TextStyle style;
    double width = -1; // as asked for; below 0 without limit
    double layoutWidth = 0;
    Size size;
    std::vector<Piece> pieces; // at least one, top down

    Native() = default;
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;
    ~Native();
};

} // namespace toolkit
