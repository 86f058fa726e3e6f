#include "platform/toolkit/text/TextPainter.h"

#include "platform/toolkit/text/GlyphCache.h"
#include "platform/toolkit/text/GlyphTarget.h"
#include "platform/toolkit/text/TextLayoutNative.h"

#include <cairo-ft.h>
#include <pango/pangocairo.h>

#include <optional>
#include <vector>

namespace toolkit {

namespace {

double points(int units) {
    return static_cast<double>(units) / PANGO_SCALE;
}

/// The run's glyphs at `origin`, its place on the baseline.
std::vector<cairo_glyph_t> placedGlyphs(const PangoGlyphString& glyphs, Point origin) {
    std::vector<cairo_glyph_t> placed;
    placed.reserve(static_cast<std::size_t>(glyphs.num_glyphs));
    int advance = 0;
    for (int i = 0; i < glyphs.num_glyphs; ++i) {
        const PangoGlyphInfo& glyph = glyphs.glyphs[i];
        // Characters that no font has become a box with their number, which the layout library draws itself.
        const bool isDrawable = glyph.glyph != PANGO_GLYPH_EMPTY && !(glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG);
        if (isDrawable)
            placed.push_back({glyph.glyph, origin.x + points(advance + glyph.geometry.x_offset),
                              origin.y + points(glyph.geometry.y_offset)});
        advance += glyph.geometry.width;
    }
    return placed;
}

bool isPictureFont(cairo_scaled_font_t* font) {
    if (cairo_scaled_font_get_type(font) != CAIRO_FONT_TYPE_FT)
        return false;
    FT_Face face = cairo_ft_scaled_font_lock_face(font);
    const bool isPicture = face && FT_HAS_COLOR(face);
    cairo_ft_scaled_font_unlock_face(font);
    return isPicture;
}

bool hasUnknownGlyphs(const PangoGlyphString& glyphs) {
    for (int i = 0; i < glyphs.num_glyphs; ++i)
        if (glyphs.glyphs[i].glyph != PANGO_GLYPH_EMPTY &&
            (glyphs.glyphs[i].glyph & PANGO_GLYPH_UNKNOWN_FLAG))
            return true;
    return false;
}

bool isKeptSize(cairo_scaled_font_t* font, double scale) {
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(font, &matrix);
    return matrix.xx * scale <= GlyphCache::largestSize;
}

/// What a text is painted with.
struct Brush {
    cairo_t* cr;
    Color color;
    std::optional<GlyphTarget> target;
};

void paintRun(const Brush& brush, const PangoGlyphItem& run, Point origin) {
    cairo_t* cr = brush.cr;
    PangoFont* font = run.item->analysis.font;
    cairo_scaled_font_t* scaled = font ? pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)) : nullptr;
    if (!scaled)
        return;
    if (isPictureFont(scaled) || hasUnknownGlyphs(*run.glyphs)) {
        cairo_move_to(cr, origin.x, origin.y);
        pango_cairo_show_glyph_string(cr, font, run.glyphs);
        return;
    }
    const std::vector<cairo_glyph_t> glyphs = placedGlyphs(*run.glyphs, origin);
    if (glyphs.empty())
        return;
    if (brush.target && isKeptSize(scaled, brush.target->scale())) {
        cairo_surface_flush(cairo_get_target(cr));
        for (const cairo_glyph_t& glyph : glyphs)
            brush.target->draw(scaled, glyph.index, {glyph.x, glyph.y}, brush.color);
        brush.target->finish();
        return;
    }
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(scaled, &matrix);
    cairo_set_font_face(cr, cairo_scaled_font_get_font_face(scaled));
    cairo_set_font_matrix(cr, &matrix);
    // As shapes: the library's glyph pictures would jump from pixel to pixel while text grows or moves.
    cairo_new_path(cr);
    cairo_glyph_path(cr, glyphs.data(), static_cast<int>(glyphs.size()));
    cairo_fill(cr);
}

void paintLine(const Brush& brush, PangoLayoutIter* iterator, Point origin) {
    const PangoLayoutLine* line = pango_layout_iter_get_line_readonly(iterator);
    PangoRectangle logical;
    pango_layout_iter_get_line_extents(iterator, nullptr, &logical);
    const double baseline = origin.y + points(pango_layout_iter_get_baseline(iterator));
    double x = origin.x + points(logical.x);
    for (GSList* item = line->runs; item; item = item->next) {
        const auto* run = static_cast<const PangoGlyphItem*>(item->data);
        paintRun(brush, *run, {x, baseline});
        x += points(pango_glyph_string_get_width(run->glyphs));
    }
}

} // namespace

void paintText(cairo_t* cr, const TextLayout::Native& text, Point topLeft, const Color& color) {
    cairo_save(cr);
    cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.alpha);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_GRAY);
    const Brush brush{cr, color, GlyphTarget::of(cr)};
    double left, top, right, bottom;
    cairo_clip_extents(cr, &left, &top, &right, &bottom);
    for (const TextLayout::Native::Piece& piece : text.pieces) {
        const Point origin{topLeft.x, topLeft.y + piece.y};
        PangoLayoutIter* iterator = pango_layout_get_iter(piece.layout);
        do {
            PangoRectangle ink, logical;
            pango_layout_iter_get_line_extents(iterator, &ink, &logical);
            const double lineTop = origin.y + points(std::min(ink.y, logical.y));
            const double lineBottom =
                origin.y + points(std::max(ink.y + ink.height, logical.y + logical.height));
            if (lineTop > bottom)
                break;
            if (lineBottom >= top)
                paintLine(brush, iterator, origin);
        } while (pango_layout_iter_next_line(iterator));
        pango_layout_iter_free(iterator);
    }
    cairo_restore(cr);
}

} // namespace toolkit
