#include "platform/toolkit/text/TextPieces.h"

#include "platform/toolkit/text/FontMap.h"

#include <glib.h>

#include <algorithm>
#include <cmath>

namespace toolkit {

namespace {

using Native = TextLayout::Native;

/// A stretch of the text that is laid out at once: whole paragraphs, or a part of a very long one.
struct Stretch {
    std::size_t start = 0;
    std::size_t length = 0; // without the line break at its end
    std::size_t next = 0;   // where the next one starts
};

/// The length of a line break at `position`, 0 for none.
std::size_t lineBreakLength(const std::string& text, std::size_t position) {
    if (text.compare(position, 2, "\r\n") == 0)
        return 2;
    if (position < text.size() && (text[position] == '\n' || text[position] == '\r'))
        return 1;
    return text.compare(position, 3, "\u2029") == 0 ? 3 : 0;
}

bool mayBreakAfter(gunichar character) {
    switch (g_unichar_break_type(character)) {
    case G_UNICODE_BREAK_ALPHABETIC:
    case G_UNICODE_BREAK_NUMERIC:
    case G_UNICODE_BREAK_COMBINING_MARK:
    case G_UNICODE_BREAK_QUOTATION:
    case G_UNICODE_BREAK_EXCLAMATION:
    case G_UNICODE_BREAK_INFIX_SEPARATOR:
    case G_UNICODE_BREAK_SYMBOL:
    case G_UNICODE_BREAK_PREFIX:
    case G_UNICODE_BREAK_POSTFIX:
    case G_UNICODE_BREAK_OPEN_PUNCTUATION:
    case G_UNICODE_BREAK_CLOSE_PUNCTUATION:
    case G_UNICODE_BREAK_CLOSE_PARANTHESIS:
    case G_UNICODE_BREAK_NON_BREAKING_GLUE:
    case G_UNICODE_BREAK_WORD_JOINER:
    case G_UNICODE_BREAK_ZERO_WIDTH_JOINER:
    case G_UNICODE_BREAK_AMBIGUOUS:
    case G_UNICODE_BREAK_UNKNOWN:
        return false;
    default:
        return true;
    }
}

/// How much may be laid out at once, in bytes.
struct Limits {
    std::size_t stretch;
    std::size_t word;
};

/// The layout library's time grows with the square of a paragraph's length, and with that of a word which has
/// to be broken, and it counts in 1/1024 of a point with 32 bits; longer ones are broken by force.
Limits limitsOf(const Native& native) {
    const double stretch = std::clamp(1e6 / std::max(native.style.font.size, 1.0), 500.0, 4096.0);
    const bool wraps = native.width >= 0;
    return {static_cast<std::size_t>(stretch), wraps ? 256 : static_cast<std::size_t>(stretch)};
}

/// The end of the paragraph at `start`, or a place before it that must not be passed.
std::size_t endOfParagraph(const std::string& text, std::size_t start, std::size_t limit,
                           std::size_t longestWord) {
    std::size_t wordStart = start;
    while (start < std::min(limit, text.size()) && lineBreakLength(text, start) == 0) {
        if (start - wordStart >= longestWord)
            return start;
        const char* character = text.data() + start;
        const std::size_t next = start + static_cast<std::size_t>(g_utf8_next_char(character) - character);
        if (mayBreakAfter(g_utf8_get_char(character)))
            wordStart = next;
        start = next;
    }
    return start;
}

Stretch stretchAt(const std::string& text, std::size_t start, const Limits& limits) {
    const std::size_t limit = start + limits.stretch;
    Stretch stretch{start, 0, 0};
    for (std::size_t paragraph = start;;) {
        const std::size_t end = endOfParagraph(text, paragraph, limit, limits.word);
        if (end < text.size() && lineBreakLength(text, end) == 0) {
            if (paragraph > start) // the paragraphs before it are enough
                return stretch;
            const std::size_t space = text.rfind(' ', end - 1);
            const bool hasSpace = end >= limit && space != std::string::npos && space > start;
            const std::size_t cut = hasSpace ? space + 1 : end;
            return {start, cut - start, cut};
        }
        stretch.length = end - start;
        stretch.next = end + lineBreakLength(text, end);
        // A break at the very end has an empty line after it, which needs a stretch of its own to be seen.
        if (end == text.size() || stretch.next == text.size())
            return stretch;
        paragraph = stretch.next;
    }
}

PangoAlignment pangoAlignment(TextAlignment alignment) {
    switch (alignment) {
    case TextAlignment::Center:
        return PANGO_ALIGN_CENTER;
    case TextAlignment::Right:
        return PANGO_ALIGN_RIGHT;
    case TextAlignment::Left:
        break;
    }
    return PANGO_ALIGN_LEFT;
}

PangoLayout* makeLayout(const Native& native, std::string_view text) {
    const TextStyle& style = native.style;
    PangoLayout* layout = pango_layout_new(sharedTextContext());
    PangoFontDescription* description = makeFontDescription(style.font);
    pango_layout_set_font_description(layout, description);
    pango_font_description_free(description);
    if (style.font.monospacedDigits) {
        PangoAttrList* attributes = pango_attr_list_new();
        pango_attr_list_insert(attributes, pango_attr_font_features_new("tnum=1"));
        pango_layout_set_attributes(layout, attributes);
        pango_attr_list_unref(attributes);
    }
    pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
    pango_layout_set_alignment(layout, pangoAlignment(style.alignment));
    pango_layout_set_width(layout,
                           native.width < 0 ? -1 : static_cast<int>(std::floor(native.width * PANGO_SCALE)));
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    return layout;
}

/// The last line that is shown of a text that goes on after it; `wrapped` is its length when nothing is cut
/// off.
PangoLayout* makeLastLine(const Native& native, std::size_t start, std::size_t wrapped) {
    const std::string& text = native.text;
    if (native.style.lineBreak == LineBreak::WordWrap)
        return makeLayout(native, std::string_view(text).substr(start, wrapped));
    const Limits limits = limitsOf(native);
    const std::size_t end = endOfParagraph(text, start, start + limits.stretch, limits.stretch);
    std::string line = text.substr(start, end - start);
    if (end < text.size())
        line += "\u2026";
    PangoLayout* layout = makeLayout(native, line);
    if (native.width >= 0)
        pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
    return layout;
}

void addPiece(Native& native, PangoLayout* layout, std::size_t start, std::size_t length) {
    double y = 0;
    if (!native.pieces.empty())
        y = native.pieces.back().y + sizeOfPiece(native.pieces.back()).height;
    native.pieces.push_back({layout, y, start, length});
}

/// Adds the first `lines` lines of a stretch, the last of them cut off.
void addCutStretch(Native& native, PangoLayout* whole, const Stretch& stretch, int lines) {
    const PangoLayoutLine* last = pango_layout_get_line_readonly(whole, lines - 1);
    const auto start = static_cast<std::size_t>(last->start_index),
               length = static_cast<std::size_t>(last->length);
    if (lines > 1) {
        const PangoLayoutLine* before = pango_layout_get_line_readonly(whole, lines - 2);
        const auto headLength = static_cast<std::size_t>(before->start_index + before->length);
        addPiece(native, makeLayout(native, std::string_view(native.text).substr(stretch.start, headLength)),
                 stretch.start, start);
    }
    const std::size_t tail = stretch.start + start;
    addPiece(native, makeLastLine(native, tail, length), tail, native.text.size() - tail);
}

} // namespace

Size sizeOfPiece(const Native::Piece& piece) {
    int width = 0, height = 0;
    pango_layout_get_size(piece.layout, &width, &height);
    return {static_cast<double>(width) / PANGO_SCALE, static_cast<double>(height) / PANGO_SCALE};
}

void makeTextPieces(Native& native) {
    const std::string& text = native.text;
    const Limits limits = limitsOf(native);
    int linesLeft = native.style.numberOfLines; // 0 or below: without limit
    const bool limited = linesLeft > 0;
    for (Stretch stretch = stretchAt(text, 0, limits);; stretch = stretchAt(text, stretch.next, limits)) {
        PangoLayout* layout =
            makeLayout(native, std::string_view(text).substr(stretch.start, stretch.length));
        const int lines = pango_layout_get_line_count(layout);
        const bool goesOn = stretch.start + stretch.length < text.size();
        if (limited && (lines > linesLeft || (lines == linesLeft && goesOn))) {
            addCutStretch(native, layout, stretch, linesLeft);
            g_object_unref(layout);
            return;
        }
        addPiece(native, layout, stretch.start, stretch.length);
        linesLeft -= lines;
        if (!goesOn)
            return;
    }
}

} // namespace toolkit
