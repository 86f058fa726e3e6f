#include "platform/toolkit/text/TextLayout.h"

#include "platform/toolkit/text/TextPieces.h"
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

void measure(Native& native) {
    double width = 0;
    for (const Native::Piece& piece : native.pieces)
        width = std::max(width, sizeOfPiece(piece).width);
    const Native::Piece& last = native.pieces.back();
    native.size = {upToHalfPoint(width), upToHalfPoint(last.y + sizeOfPiece(last).height)};
    native.layoutWidth = native.width < 0 ? native.size.width : native.width;
    if (native.width >= 0)
        return;
    // Without a limit alignment takes place within the text's own width.
    for (const Native::Piece& piece : native.pieces)
        pango_layout_set_width(piece.layout, static_cast<int>(std::ceil(native.size.width * PANGO_SCALE)));
}

/// The piece that the byte at `index` belongs to.
const Native::Piece& pieceOf(const Native& native, std::size_t index) {
    const Native::Piece* found = &native.pieces.front();
    for (const Native::Piece& piece : native.pieces)
        if (piece.start <= index)
            found = &piece;
    return *found;
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
    makeTextPieces(*native_);
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
    const Native::Piece& piece = pieceOf(*native_, index);
    const std::string_view laidOut = pango_layout_get_text(piece.layout);
    std::size_t local = std::min({index - piece.start, piece.length, laidOut.size()});
    while (local > 0 && local < laidOut.size() && (static_cast<unsigned char>(laidOut[local]) & 0xC0) == 0x80)
        --local;
    PangoRectangle strong;
    pango_layout_get_cursor_pos(piece.layout, static_cast<int>(local), &strong, nullptr);
    constexpr double caretWidth = 2;
    return {points(strong.x), piece.y + points(strong.y), caretWidth, points(strong.height)};
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
