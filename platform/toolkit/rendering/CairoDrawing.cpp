#include "platform/toolkit/rendering/CairoDrawing.h"

namespace toolkit {

cairo_matrix_t cairoMatrix(const AffineTransform& t) {
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, t.a, t.b, t.c, t.d, t.tx, t.ty);
    return matrix;
}

AffineTransform currentTransform(cairo_t* cr) {
    cairo_matrix_t matrix;
    cairo_get_matrix(cr, &matrix);
    return {matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0};
}

Rect boundedForCairo(const Rect& rect) {
    static constexpr double limit = 1 << 20;
    const auto bounded = [](double value) { return value > -limit ? std::min(value, limit) : -limit; };
    const double left = bounded(rect.x), top = bounded(rect.y);
    return {left, top, bounded(rect.maxX()) - left, bounded(rect.maxY()) - top};
}

void setSource(cairo_t* cr, const Color& color) {
    cairo_set_source_rgba(cr, color.red, color.green, color.blue, color.alpha);
}

void addRect(cairo_t* cr, const Rect& rect) {
    const Rect bounded = boundedForCairo(rect);
    cairo_rectangle(cr, bounded.x, bounded.y, bounded.width, bounded.height);
}

void addPath(cairo_t* cr, const Path& path) {
    struct Adder {
        cairo_t* cr;
        void operator()(const Path::Move& e) const { cairo_move_to(cr, e.to.x, e.to.y); }
        void operator()(const Path::Line& e) const { cairo_line_to(cr, e.to.x, e.to.y); }
        void operator()(const Path::Curve& e) const {
            cairo_curve_to(cr, e.control1.x, e.control1.y, e.control2.x, e.control2.y, e.to.x, e.to.y);
        }
        void operator()(const Path::Arc& e) const {
            // cairo turns an end before the start forwards by whole turns, one at a time.
            if (std::isfinite(e.start) && std::isfinite(e.end) && std::abs(e.end - e.start) < 1000)
                cairo_arc(cr, e.center.x, e.center.y, std::max(0.0, e.radius), e.start, e.end);
        }
        void operator()(const Path::Close&) const { cairo_close_path(cr); }
    };
    cairo_new_path(cr);
    for (const Path::Element& element : path.elements())
        std::visit(Adder{cr}, element);
}

void addStops(cairo_pattern_t* pattern, const std::vector<GradientStop>& stops) {
    for (const GradientStop& stop : stops)
        cairo_pattern_add_color_stop_rgba(pattern, stop.location, stop.color.red, stop.color.green,
                                          stop.color.blue, stop.color.alpha);
}

std::optional<PixelRect> clipPixels(cairo_t* cr) {
    cairo_save(cr);
    cairo_identity_matrix(cr);
    cairo_rectangle_list_t* list = cairo_copy_clip_rectangle_list(cr);
    std::optional<PixelRect> result;
    if (list->status == CAIRO_STATUS_SUCCESS && list->num_rectangles <= 1) {
        result = PixelRect();
        if (list->num_rectangles == 1) {
            const cairo_rectangle_t& r = list->rectangles[0];
            result = PixelRect::around({r.x, r.y, r.width, r.height});
        }
    }
    cairo_rectangle_list_destroy(list);
    cairo_restore(cr);
    return result;
}

PixelRect clipExtents(cairo_t* cr) {
    cairo_save(cr);
    cairo_identity_matrix(cr);
    double left, top, right, bottom;
    cairo_clip_extents(cr, &left, &top, &right, &bottom);
    cairo_restore(cr);
    return PixelRect::around({left, top, right - left, bottom - top});
}

} // namespace toolkit
