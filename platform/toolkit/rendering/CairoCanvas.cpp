#include "platform/toolkit/rendering/CairoCanvas.h"

#include "platform/toolkit/rendering/CairoCanvasState.h"
#include "platform/toolkit/rendering/ShadowMask.h"
#include "platform/toolkit/text/TextPainter.h"

namespace toolkit {

namespace {

constexpr std::int64_t maximumShadowPixels = 64'000'000;

/// A map that squeezes the plane flat, or carries everything out of sight, would put the painting library
/// into an error for good.
bool isUsable(const AffineTransform& t) {
    constexpr double largest = 1e9, smallest = 1e-12;
    const double determinant = std::abs(t.a * t.d - t.b * t.c);
    const double reach = std::max({std::abs(t.a), std::abs(t.b), std::abs(t.c), std::abs(t.d)});
    return determinant > smallest && reach < largest && std::abs(t.tx) < largest && std::abs(t.ty) < largest;
}

bool isUpright(const AffineTransform& t) {
    return t.b == 0 && t.c == 0 && t.a > 0 && t.d > 0;
}

} // namespace

CairoCanvas::CairoCanvas(const PixelView& target, double scale) : state_(std::make_unique<State>()) {
    state_->scale = scale;
    CairoTarget first;
    first.view = target;
    first.open();
    cairo_translate(first.cr, -target.originX, -target.originY);
    cairo_scale(first.cr, scale, scale);
    state_->targets.push_back(std::move(first));
}

CairoCanvas::~CairoCanvas() {
    for (CairoTarget& target : state_->targets)
        target.close();
}

void CairoCanvas::save() {
    cairo_save(state_->cr());
}

void CairoCanvas::restore() {
    cairo_restore(state_->cr());
}

void CairoCanvas::concat(const AffineTransform& transform) {
    if (!isUsable(transform)) {
        cairo_new_path(state_->cr());
        cairo_clip(state_->cr());
        return;
    }
    const cairo_matrix_t matrix = cairoMatrix(transform);
    cairo_transform(state_->cr(), &matrix);
}

void CairoCanvas::clipRect(Rect rect) {
    cairo_new_path(state_->cr());
    addRect(state_->cr(), rect);
    cairo_clip(state_->cr());
}

void CairoCanvas::clipRoundedRect(Rect rect, double radius) {
    if (!(radius > 0))
        return clipRect(rect);
    addPath(state_->cr(), Path::roundedRect(boundedForCairo(rect), radius));
    cairo_clip(state_->cr());
}

void CairoCanvas::State::fill(const Color& color) {
    setSource(cr(), color);
    cairo_fill(cr());
}

void CairoCanvas::fillRect(Rect rect, Color color) {
    if (rect.isEmpty() || color.isClear())
        return;
    cairo_new_path(state_->cr());
    addRect(state_->cr(), rect);
    state_->fill(color);
}

void CairoCanvas::fillRoundedRect(Rect rect, double radius, Color color) {
    if (!(radius > 0))
        return fillRect(rect, color);
    if (rect.isEmpty() || color.isClear())
        return;
    addPath(state_->cr(), Path::roundedRect(boundedForCairo(rect), radius));
    state_->fill(color);
}

void CairoCanvas::fillPath(const Path& path, Color color) {
    if (color.isClear())
        return;
    addPath(state_->cr(), path);
    state_->fill(color);
}

void CairoCanvas::strokePath(const Path& path, double width, LineCap cap, Color color) {
    if (color.isClear() || !(width > 0))
        return;
    cairo_t* cr = state_->cr();
    addPath(cr, path);
    cairo_set_line_width(cr, width);
    cairo_set_line_cap(cr, cap == LineCap::Round    ? CAIRO_LINE_CAP_ROUND
                           : cap == LineCap::Square ? CAIRO_LINE_CAP_SQUARE
                                                    : CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(cr, cap == LineCap::Round ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER);
    setSource(cr, color);
    cairo_stroke(cr);
}

void CairoCanvas::fillLinearGradient(Rect rect, Point from, Point to,
                                     const std::vector<GradientStop>& stops) {
    cairo_t* cr = state_->cr();
    cairo_pattern_t* pattern = cairo_pattern_create_linear(from.x, from.y, to.x, to.y);
    addStops(pattern, stops);
    cairo_set_source(cr, pattern);
    cairo_new_path(cr);
    addRect(cr, rect);
    cairo_fill(cr);
    cairo_pattern_destroy(pattern);
}

void CairoCanvas::fillRadialGradient(Rect rect, Point center, double radius,
                                     const std::vector<GradientStop>& stops) {
    if (!(radius > 0))
        return;
    cairo_t* cr = state_->cr();
    cairo_pattern_t* pattern = cairo_pattern_create_radial(center.x, center.y, 0, center.x, center.y, radius);
    addStops(pattern, stops);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_NONE);
    cairo_set_source(cr, pattern);
    cairo_new_path(cr);
    addRect(cr, rect);
    cairo_fill(cr);
    cairo_pattern_destroy(pattern);
}

void CairoCanvas::State::setImage(const Image& image, const Rect& into, ImageFilter filter) {
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        const_cast<unsigned char*>(image.pixels().data()), CAIRO_FORMAT_ARGB32, image.pixelWidth(),
        image.pixelHeight(), image.bytesPerRow());
    cairo_translate(cr(), into.x, into.y);
    const double scaleX = into.width / image.pixelWidth(), scaleY = into.height / image.pixelHeight();
    cairo_scale(cr(), scaleX, scaleY);
    const AffineTransform t = currentTransform(cr());
    const bool pixelForPixel =
        std::abs(t.a - 1) * image.pixelWidth() < 0.01 && std::abs(t.d - 1) * image.pixelHeight() < 0.01 &&
        std::abs(t.b) * image.pixelWidth() < 0.01 && std::abs(t.c) * image.pixelHeight() < 0.01;
    if (pixelForPixel) {
        cairo_identity_matrix(cr());
        cairo_translate(cr(), std::floor(t.tx + 0.5 + 1e-6), std::floor(t.ty + 0.5 + 1e-6));
    }
    cairo_set_source_surface(cr(), surface, 0, 0);
    cairo_pattern_t* pattern = cairo_get_source(cr());
    const double smallest = std::min(std::hypot(t.a, t.b), std::hypot(t.c, t.d));
    if (pixelForPixel || filter == ImageFilter::Nearest)
        cairo_pattern_set_filter(pattern, CAIRO_FILTER_NEAREST);
    else
        cairo_pattern_set_filter(pattern, smallest < 0.5 ? CAIRO_FILTER_GOOD : CAIRO_FILTER_BILINEAR);
    if (!pixelForPixel)
        cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD); // keeps the edges from fading into nothing
    cairo_surface_destroy(surface);
}

void CairoCanvas::State::drawImage(const Image& image, Rect into, double opacity, ImageFilter filter) {
    into = boundedForCairo(into);
    if (into.isEmpty() || !(opacity > 0))
        return;
    cairo_save(cr());
    setImage(image, into, filter);
    cairo_new_path(cr());
    cairo_rectangle(cr(), 0, 0, image.pixelWidth(), image.pixelHeight());
    if (opacity >= 1) {
        cairo_fill(cr());
    } else {
        cairo_clip(cr());
        cairo_paint_with_alpha(cr(), opacity);
    }
    cairo_restore(cr());
}

void CairoCanvas::drawImage(const Image& image, Rect into, double opacity, ImageFilter filter) {
    state_->drawImage(image, into, opacity, filter);
}

void CairoCanvas::replaceWithImage(const Image& image, Rect into, double opacity, ImageFilter filter) {
    if (into.isEmpty())
        return;
    cairo_save(state_->cr());
    cairo_new_path(state_->cr());
    addRect(state_->cr(), into);
    cairo_clip(state_->cr());
    cairo_set_operator(state_->cr(), CAIRO_OPERATOR_CLEAR);
    cairo_paint(state_->cr());
    cairo_restore(state_->cr());
    state_->drawImage(image, into, opacity, filter);
}

void CairoCanvas::drawText(const TextLayout& text, Point topLeft, Color color) {
    if (!color.isClear())
        paintText(state_->cr(), text.native(), topLeft, color);
}

void CairoCanvas::State::drawMask(std::vector<std::uint8_t>& coverage, int width, int height, int bytesPerRow,
                                  Point topLeft, const Color& color) {
    cairo_surface_t* mask =
        cairo_image_surface_create_for_data(coverage.data(), CAIRO_FORMAT_A8, width, height, bytesPerRow);
    setSource(cr(), color);
    cairo_mask_surface(cr(), mask, topLeft.x, topLeft.y);
    cairo_surface_finish(mask);
    cairo_surface_destroy(mask);
}

void CairoCanvas::drawShadow(Rect rect, double cornerRadius, double blur, Size offset, Color color) {
    if (rect.isEmpty() || color.isClear())
        return;
    cairo_t* cr = state_->cr();
    const AffineTransform t = currentTransform(cr);
    const bool upright = isUpright(t);
    const double scale = std::sqrt(std::abs(t.a * t.d - t.b * t.c));
    rect = rect.offsetBy(offset.width, offset.height);
    // Upright shadows are made in device pixels; others at the same scale, and turned as a picture.
    const Rect shape = upright ? t.apply(rect) : Rect{0, 0, rect.width * scale, rect.height * scale};
    if (!std::isfinite(shape.x + shape.y + shape.width + shape.height))
        return;
    const int left = static_cast<int>(std::lround(std::clamp(shape.x, -1e6, 1e6)));
    const int top = static_cast<int>(std::lround(std::clamp(shape.y, -1e6, 1e6)));
    const auto side = [](double length) {
        return static_cast<int>(std::clamp(std::round(length), 1.0, 16384.0));
    };
    const ShadowMask mask(side(shape.width), side(shape.height), cornerRadius * scale, blur * scale);
    const int reach = mask.reach();
    PixelRect area{-reach, -reach, side(shape.width) + 2 * reach, side(shape.height) + 2 * reach};
    if (upright) {
        const PixelRect clip = clipExtents(cr);
        area = area.intersection({clip.x - left, clip.y - top, clip.width, clip.height});
    }
    if (area.isEmpty() || area.area() > maximumShadowPixels)
        return;
    const int bytesPerRow = cairo_format_stride_for_width(CAIRO_FORMAT_A8, area.width);
    std::vector<std::uint8_t> coverage = mask.coverage(area, bytesPerRow);
    cairo_save(cr);
    if (upright) {
        cairo_identity_matrix(cr);
        state_->drawMask(coverage, area.width, area.height, bytesPerRow,
                         {static_cast<double>(left + area.x), static_cast<double>(top + area.y)}, color);
    } else {
        cairo_translate(cr, rect.x, rect.y);
        cairo_scale(cr, 1 / scale, 1 / scale);
        state_->drawMask(coverage, area.width, area.height, bytesPerRow,
                         {static_cast<double>(area.x), static_cast<double>(area.y)}, color);
    }
    cairo_restore(cr);
}

} // namespace toolkit
