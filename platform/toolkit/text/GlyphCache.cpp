#include "platform/toolkit/text/GlyphCache.h"

#include <cmath>
#include <functional>

namespace toolkit {

namespace {

constexpr std::size_t budgetBytes = 8 * 1024 * 1024;
constexpr std::size_t bytesPerEntry = 128; // of what is kept beside the pixels

GlyphCache::Glyph drawGlyph(cairo_scaled_font_t* font, double scale, unsigned long index, double dx,
                            double dy) {
    cairo_surface_t* none = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    cairo_t* measuring = cairo_create(none);
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(font, &matrix);
    const cairo_glyph_t glyph{index, 0, 0};
    const auto trace = [&](cairo_t* cr, double x, double y) {
        cairo_translate(cr, x, y);
        cairo_scale(cr, scale, scale);
        cairo_set_font_face(cr, cairo_scaled_font_get_font_face(font));
        cairo_set_font_matrix(cr, &matrix);
        cairo_glyph_path(cr, &glyph, 1);
        cairo_identity_matrix(cr);
    };
    trace(measuring, dx, dy);
    double left, top, right, bottom;
    cairo_path_extents(measuring, &left, &top, &right, &bottom);
    cairo_destroy(measuring);
    cairo_surface_destroy(none);

    GlyphCache::Glyph result;
    if (!(right > left && bottom > top))
        return result;
    result.left = static_cast<int>(std::floor(left));
    result.top = static_cast<int>(std::floor(top));
    result.width = static_cast<int>(std::ceil(right)) - result.left;
    result.height = static_cast<int>(std::ceil(bottom)) - result.top;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_A8, result.width, result.height);
    cairo_t* cr = cairo_create(surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_GRAY);
    trace(cr, dx - result.left, dy - result.top);
    cairo_fill(cr);
    cairo_destroy(cr);
    cairo_surface_flush(surface);
    const unsigned char* pixels = cairo_image_surface_get_data(surface);
    const int bytesPerRow = cairo_image_surface_get_stride(surface);
    for (int y = 0; pixels && y < result.height; ++y)
        result.coverage.insert(result.coverage.end(), pixels + y * bytesPerRow,
                               pixels + y * bytesPerRow + result.width);
    cairo_surface_destroy(surface);
    result.coverage.resize(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
    return result;
}

} // namespace

std::size_t GlyphCache::Hash::operator()(const Key& key) const {
    std::size_t hash = std::hash<const void*>()(key.font);
    for (const std::size_t part : {std::hash<double>()(key.scale), static_cast<std::size_t>(key.index),
                                   static_cast<std::size_t>(key.step)})
        hash = hash * 1000003 ^ part;
    return hash;
}

GlyphCache& GlyphCache::shared() {
    static GlyphCache& cache = *new GlyphCache; // never destroyed: at the process's end the fonts go first
    return cache;
}

const GlyphCache::Glyph& GlyphCache::glyph(cairo_scaled_font_t* font, double scale, unsigned long index,
                                           int stepX, int stepY) {
    const Key key{font, scale, index, stepY * steps + stepX};
    if (const auto found = glyphs_.find(key); found != glyphs_.end())
        return found->second;
    if (bytes_ > budgetBytes)
        clear();
    cairo_scaled_font_reference(font);
    Glyph& made = glyphs_[key];
    made =
        drawGlyph(font, scale, index, static_cast<double>(stepX) / steps, static_cast<double>(stepY) / steps);
    bytes_ += made.coverage.size() + bytesPerEntry;
    return made;
}

void GlyphCache::clear() {
    for (const auto& [key, glyph] : glyphs_)
        cairo_scaled_font_destroy(key.font);
    glyphs_.clear();
    bytes_ = 0;
}

} // namespace toolkit
