// Pictures of single glyphs, each at a few fractions of a pixel, kept for the next time. Main thread only.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace toolkit {

class GlyphCache {
public:
    /// Fractions of a pixel that a glyph is put on, in both directions.
    static constexpr int steps = 4;
    /// Glyphs higher than this many pixels are cheaper to draw than to keep.
    static constexpr double largestSize = 120;

    struct Glyph {
        int left = 0; // of the first pixel, from the whole pixel that the glyph stands on
        int top = 0;
        int width = 0;
        int height = 0;
        std::vector<std::uint8_t> coverage; // rows of `width` bytes
    };

    static GlyphCache& shared();

    /// The picture of a glyph of `font` at `scale` pixels for each of the font's units of length, moved right
    /// and down by `stepX` and `stepY` steps. Valid until the next call.
    const Glyph& glyph(cairo_scaled_font_t* font, double scale, unsigned long index, int stepX, int stepY);
    void clear();

private:
    struct Key {
        cairo_scaled_font_t* font; // held
        double scale;
        unsigned long index;
        int step;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct Hash {
        std::size_t operator()(const Key& key) const;
    };

    std::unordered_map<Key, Glyph, Hash> glyphs_;
    std::size_t bytes_ = 0;
};

} // namespace toolkit
