#include "platform/toolkit/text/TextLayout.h"

#include "platform/toolkit/text/FontMap.h"
#include "platform/toolkit/text/TextLayoutNative.h"
#include "platform/toolkit/text/Utf8.h"

#include <cmath>

namespace toolkit {

namespace {

constexpr std::size_t maximumTextBytes = 1024 * 1024;
constexpr double widest = 1'000'000; // points; the layout library counts in 1/1024 of a point, 32 bits

using Native = TextLayout::Native;

double points(int units) {
    return static_cast<double>(units) / PANGO_SCALE;
}

double upToHalfPoint(double value) {
    return std::ceil(value * 2 - 1e-3) / 2;
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

PangoLayout* makeLayout(const TextStyle& style, const char* text, std::size_t length, double width) {
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
    pango_layout_set_auto_dir(layout, TRUE);
    pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
    pango_layout_set_alignment(layout, pangoAlignment(style.alignment));
    pango_layout_set_width(layout, width < 0 ? -1 : static_cast<int>(std::floor(width * PANGO_SCALE)));
    pango_layout_set_text(layout, text, static_cast<int>(length));
    return layout;
}

/// The length of a line break at `position`, 0 for none.
std::size_t lineBreakLength(const std::string& text, std::size_t position) {
    if (text.compare(position, 2, "\r\n") == 0)
        return 2;
    if (position < text.size() && (text[position] == '\n' || text[position] == '\r'))
        return 1;
    return text.compare(position, 3, "\u2029") == 0 ? 3 : 0;
}

std::size_t endOfParagraph(const std::string& text, std::size_t start) {
    while (start < text.size() && lineBreakLength(text, start) == 0)
        ++start;
    return start;
}

/// The last line that is shown of a text that goes on after it.
PangoLayout* makeLastLine(const Native& native, std::size_t start, std::size_t lineLength) {
    const TextStyle& style = native.style;
    if (style.lineBreak == LineBreak::WordWrap) {
        PangoLayout* layout = makeLayout(style, native.text.data() + start, lineLength, native.width);
        pango_layout_set_single_paragraph_mode(layout, TRUE);
        return layout;
    }
    const std::size_t end = endOfParagraph(native.text, start);
    // What no line can hold need not be shaped to be cut off.
    constexpr std::size_t longestLine = 16 * 1024;
    std::string line = wholeUtf8(std::string_view(native.text).substr(start, end - start), longestLine);
    if (start + line.size() < native.text.size())
        line += "\u2026";
    PangoLayout* layout = makeLayout(style, line.data(), line.size(), native.width);
    pango_layout_set_ellipsize(layout, native.width < 0 ? PANGO_ELLIPSIZE_NONE : PANGO_ELLIPSIZE_END);
    return layout;
}

Size pieceSize(PangoLayout* layout) {
    int width = 0, height = 0;
    pango_layout_get_size(layout, &width, &height);
    return {points(width), points(height)};
}

/// The byte where the line after `lines` lines begins in `layout`; its end when there is none.
PangoLayoutLine* lineAt(PangoLayout* layout, int index) {
    return pango_layout_get_line_readonly(layout, index);
}

/// As much of the text as `lines` lines can need; laying a megabyte out to show one line of it would stall.
std::size_t usefulLength(const Native& native) {
    const int lines = native.style.numberOfLines;
    if (lines <= 0)
        return native.text.size();
    constexpr std::size_t bytesPerLine = 16 * 1024;
    std::size_t length = std::min(native.text.size(), static_cast<std::size_t>(lines) * bytesPerLine);
    while (length < native.text.size() && (static_cast<unsigned char>(native.text[length]) & 0xC0) == 0x80)
        --length;
    return length;
}

void makePieces(Native& native) {
    const int lines = native.style.numberOfLines;
    const std::size_t useful = usefulLength(native);
    PangoLayout* whole = makeLayout(native.style, native.text.data(), useful, native.width);
    if (lines <= 0 || (useful == native.text.size() && pango_layout_get_line_count(whole) <= lines)) {
        native.pieces.push_back({whole, 0, 0, native.text.size()});
        return;
    }
    const int last = std::min(lines, pango_layout_get_line_count(whole)) - 1;
    const PangoLayoutLine* line = lineAt(whole, last);
    const auto start = static_cast<std::size_t>(line->start_index),
               length = static_cast<std::size_t>(line->length);
    double y = 0;
    if (start > 0) {
        // A line break at the head's end would make a further, empty line.
        std::size_t headLength = start;
        for (std::size_t breakAt = start >= 3 ? start - 3 : 0; breakAt < start; ++breakAt)
            if (const std::size_t breaks = lineBreakLength(native.text, breakAt);
                breaks && breakAt + breaks == start) {
                headLength = breakAt;
                break;
            }
        PangoLayout* head = makeLayout(native.style, native.text.data(), headLength, native.width);
        native.pieces.push_back({head, 0, 0, start});
        y = pieceSize(head).height;
    }
    native.pieces.push_back({makeLastLine(native, start, length), y, start, native.text.size() - start});
    g_object_unref(whole);
}

void measure(Native& native) {
    double width = 0;
    for (const Native::Piece& piece : native.pieces)
        width = std::max(width, pieceSize(piece.layout).width);
    const Native::Piece& last = native.pieces.back();
    native.size = {upToHalfPoint(width), upToHalfPoint(last.y + pieceSize(last.layout).height)};
    native.layoutWidth = native.width < 0 ? native.size.width : native.width;
    if (native.width >= 0)
        return;
    // Without a limit alignment takes place within the text's own width.
    for (const Native::Piece& piece : native.pieces)
        if (native.style.alignment != TextAlignment::Left || native.pieces.size() > 1) {
            pango_layout_set_ellipsize(piece.layout, PANGO_ELLIPSIZE_NONE);
            pango_layout_set_width(piece.layout,
                                   static_cast<int>(std::ceil(native.size.width * PANGO_SCALE)));
        }
}

} // namespace

TextLayout::Native::~Native() {
    for (const Piece& piece : pieces)
        g_object_unref(piece.layout);
}

TextLayout::TextLayout(const std::string& text, const TextStyle& style, double width)
    : native_(std::make_unique<Native>()) {
    native_->text = wholeUtf8(text, maximumTextBytes);
    native_->style = style;
    native_->width = width >= 0 ? std::min(width, widest) : -1;
    makePieces(*native_);
    measure(*native_);
}

TextLayout::~TextLayout() = default;
TextLayout::TextLayout(TextLayout&&) noexcept = default;
TextLayout& TextLayout::operator=(TextLayout&&) noexcept = default;

Size TextLayout::size() const {
    return native_->size;
}

double TextLayout::baseline() const {
    return points(pango_layout_get_baseline(native_->pieces.front().layout));
}

double TextLayout::layoutWidth() const {
    return native_->layoutWidth;
}

const std::string& TextLayout::text() const {
    return native_->text;
}

const TextStyle& TextLayout::style() const {
    return native_->style;
}

Rect TextLayout::caretRect(std::size_t index) const {
    index = std::min(index, native_->text.size());
    const Native::Piece* piece = &native_->pieces.front();
    for (const Native::Piece& candidate : native_->pieces)
        if (candidate.start <= index)
            piece = &candidate;
    const auto laidOut =
        static_cast<std::size_t>(pango_layout_get_character_count(piece->layout) > 0
                                     ? std::char_traits<char>::length(pango_layout_get_text(piece->layout))
                                     : 0);
    std::size_t local = std::min(index - piece->start, laidOut);
    const char* bytes = pango_layout_get_text(piece->layout);
    while (local > 0 && (static_cast<unsigned char>(bytes[local]) & 0xC0) == 0x80)
        --local;
    PangoRectangle strong;
    pango_layout_get_cursor_pos(piece->layout, static_cast<int>(local), &strong, nullptr);
    constexpr double caretWidth = 2;
    return {points(strong.x), piece->y + points(strong.y), caretWidth, points(strong.height)};
}

std::size_t TextLayout::indexAt(Point p) const {
    const Native::Piece* piece = &native_->pieces.front();
    for (const Native::Piece& candidate : native_->pieces)
        if (candidate.y <= p.y)
            piece = &candidate;
    const auto units = [](double value) {
        return static_cast<int>(std::clamp(value, -widest, widest) * PANGO_SCALE);
    };
    int index = 0, trailing = 0;
    pango_layout_xy_to_index(piece->layout, units(p.x), units(p.y - piece->y), &index, &trailing);
    const char* bytes = pango_layout_get_text(piece->layout);
    const char* at = bytes + index;
    for (; trailing > 0 && *at; --trailing)
        at = g_utf8_next_char(at);
    return std::min(piece->start + static_cast<std::size_t>(at - bytes), native_->text.size());
}

} // namespace toolkit
