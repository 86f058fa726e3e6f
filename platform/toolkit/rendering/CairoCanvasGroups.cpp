// Groups and frosted glass: everything for which the canvas reads pixels back.
#include "platform/toolkit/rendering/CairoCanvasState.h"
#include "platform/toolkit/rendering/GroupMixing.h"

#include <cstring>

namespace toolkit {

namespace {

/// Pixels of finished groups, kept for the next ones: fresh memory costs more than painting into it.
class GroupPixels {
public:
    std::vector<std::uint32_t> take(std::size_t count) {
        std::vector<std::uint32_t> pixels;
        if (!free_.empty()) {
            pixels = std::move(free_.back());
            free_.pop_back();
        }
        if (pixels.size() < count)
            pixels.resize(count);
        std::memset(pixels.data(), 0, count * 4);
        return pixels;
    }
    void giveBack(std::vector<std::uint32_t> pixels) {
        constexpr std::size_t kept = 4;
        if (free_.size() < kept)
            free_.push_back(std::move(pixels));
    }
    void forget() { free_.clear(); }
    static GroupPixels& shared() {
        thread_local GroupPixels pixels;
        return pixels;
    }

private:
    std::vector<std::vector<std::uint32_t>> free_;
};

} // namespace

void CairoCanvas::forgetSparePixels() {
    GroupPixels::shared().forget();
}

void CairoTarget::open() {
    surface = cairo_image_surface_create_for_data(view.pixels, CAIRO_FORMAT_ARGB32, view.width, view.height,
                                                  view.bytesPerRow);
    cr = cairo_create(surface);
}

void CairoTarget::close() {
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
}

AffineTransform CairoCanvas::State::toDevice() const {
    const PixelView& view = targets.back().view;
    return currentTransform(cr()).then(AffineTransform::translation(view.originX, view.originY));
}

std::vector<PixelView> CairoCanvas::State::views() const {
    std::vector<PixelView> result;
    for (const CairoTarget& target : targets) {
        cairo_surface_flush(target.surface);
        result.push_back(target.view);
    }
    return result;
}

void CairoCanvas::beginGroup(Rect bounds, double opacity, GroupBlend blend) {
    state_->pushGroup(bounds, opacity, blend);
}

void CairoCanvas::State::pushGroup(const Rect& bounds, double opacity, GroupBlend blend) {
    CairoTarget& parent = target();
    cairo_save(parent.cr); // keeps the parent's clip and transform for the group's end
    PixelRect area = clipExtents(parent.cr);
    area.x += parent.view.originX;
    area.y += parent.view.originY;
    area = area.intersection(PixelRect::around(toDevice().apply(bounds))).intersection(parent.view.rect());
    const bool empty = area.isEmpty();
    if (empty) // commands up to the end need something to go to
        area = {parent.view.originX, parent.view.originY, 1, 1};
    CairoTarget group;
    group.pixels = GroupPixels::shared().take(static_cast<std::size_t>(area.area()));
    group.view = {reinterpret_cast<std::uint8_t*>(group.pixels.data()),
                  area.width,
                  area.height,
                  area.width * 4,
                  area.x,
                  area.y};
    group.opacity = empty ? 0 : std::clamp(opacity, 0.0, 1.0);
    group.blend = blend;
    group.open();
    const cairo_matrix_t matrix =
        cairoMatrix(toDevice().then(AffineTransform::translation(-area.x, -area.y)));
    cairo_set_matrix(group.cr, &matrix);
    if (empty)
        cairo_clip(group.cr); // without a path: nothing shows
    targets.push_back(std::move(group));
}

void CairoCanvas::endGroup() {
    state_->popGroup();
}

void CairoCanvas::endGroupMasked(Rect maskRect, Point from, Point to,
                                 const std::vector<GradientStop>& stops) {
    if (state_->targets.size() > 1)
        state_->maskTopGroup(maskRect, from, to, stops);
    state_->popGroup();
}

void CairoCanvas::State::maskTopGroup(const Rect& maskRect, Point from, Point to,
                                      const std::vector<GradientStop>& stops) {
    // The mask is meant in the coordinates that stood at the group's beginning.
    const CairoTarget& parent = targets[targets.size() - 2];
    CairoTarget& group = target();
    const AffineTransform toPixels = currentTransform(parent.cr).then(
        AffineTransform::translation(parent.view.originX, parent.view.originY));
    cairo_surface_flush(group.surface);
    const bool upright = toPixels.b == 0 && toPixels.c == 0;
    if (upright &&
        maskGroup(group.view, toPixels.apply(maskRect), toPixels.apply(from), toPixels.apply(to), stops)) {
        cairo_surface_mark_dirty(group.surface);
        return;
    }
    const cairo_matrix_t matrix =
        cairoMatrix(toPixels.then(AffineTransform::translation(-group.view.originX, -group.view.originY)));
    cairo_reset_clip(group.cr);
    cairo_set_matrix(group.cr, &matrix);
    cairo_set_operator(group.cr, CAIRO_OPERATOR_DEST_IN); // clears what lies outside the filled rectangle
    cairo_pattern_t* pattern = cairo_pattern_create_linear(from.x, from.y, to.x, to.y);
    addStops(pattern, stops);
    cairo_set_source(group.cr, pattern);
    cairo_new_path(group.cr);
    addRect(group.cr, maskRect);
    cairo_fill(group.cr);
    cairo_pattern_destroy(pattern);
}

void CairoCanvas::State::popGroup() {
    if (targets.size() < 2)
        return;
    CairoTarget group = std::move(targets.back());
    targets.pop_back();
    cairo_surface_flush(group.surface);
    if (group.opacity > 0)
        layGroup(group);
    group.close();
    GroupPixels::shared().giveBack(std::move(group.pixels));
    cairo_restore(cr());
}

void CairoCanvas::State::layGroup(CairoTarget& group) {
    CairoTarget& parent = target();
    if (group.blend != GroupBlend::Normal) {
        std::optional<PixelRect> clip = clipPixels(parent.cr);
        if (!clip)
            return mixGroupThroughClip(group);
        clip->x += parent.view.originX;
        clip->y += parent.view.originY;
        cairo_surface_flush(parent.surface);
        mixGroup(parent.view, group.view,
                 clip->intersection(group.view.rect()).intersection(parent.view.rect()), group.opacity,
                 group.blend);
        cairo_surface_mark_dirty(parent.surface);
        return;
    }
    cairo_identity_matrix(parent.cr);
    cairo_set_source_surface(parent.cr, group.surface, group.view.originX - parent.view.originX,
                             group.view.originY - parent.view.originY);
    cairo_pattern_set_filter(cairo_get_source(parent.cr), CAIRO_FILTER_NEAREST);
    if (group.opacity >= 1)
        cairo_paint(parent.cr);
    else
        cairo_paint_with_alpha(parent.cr, group.opacity);
}

void CairoCanvas::State::mixGroupThroughClip(CairoTarget& group) {
    // The mixture is made beside the target and then put in its place, as far as the clip covers each pixel.
    CairoTarget& parent = target();
    CairoTarget mixed;
    const PixelRect area = group.view.rect();
    mixed.pixels = GroupPixels::shared().take(static_cast<std::size_t>(area.area()));
    mixed.view = group.view;
    mixed.view.pixels = reinterpret_cast<std::uint8_t*>(mixed.pixels.data());
    cairo_surface_flush(parent.surface);
    for (int y = area.y; y < area.maxY(); ++y)
        std::memcpy(mixed.view.at(area.x, y), parent.view.at(area.x, y),
                    static_cast<std::size_t>(area.width) * 4);
    mixGroup(mixed.view, group.view, area, group.opacity, group.blend);
    mixed.open();
    cairo_identity_matrix(parent.cr);
    cairo_set_source_surface(parent.cr, mixed.surface, area.x - parent.view.originX,
                             area.y - parent.view.originY);
    cairo_set_operator(parent.cr, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(parent.cr, area.x - parent.view.originX, area.y - parent.view.originY, area.width,
                    area.height);
    cairo_fill(parent.cr);
    mixed.close();
    GroupPixels::shared().giveBack(std::move(mixed.pixels));
}

Backdrop CairoCanvas::captureBackdrop(PixelRect area, BackdropStyle style) const {
    const std::vector<PixelView> views = state_->views();
    return {views, area, state_->scale, style};
}

void CairoCanvas::drawBackdrop(Rect rect, double cornerRadius, BackdropStyle style) {
    if (rect.isEmpty())
        return;
    const PixelRect area = PixelRect::around(state_->toDevice().apply(rect));
    drawBackdrop(captureBackdrop(area, style), rect, cornerRadius);
}

void CairoCanvas::drawBackdrop(const Backdrop& backdrop, Rect rect, double cornerRadius) {
    if (!backdrop.isEmpty())
        state_->drawBackdrop(backdrop, rect, cornerRadius);
}

void CairoCanvas::State::drawBackdrop(const Backdrop& backdrop, Rect rect, double cornerRadius) {
    CairoTarget& into = target();
    const AffineTransform device = toDevice();
    std::optional<PixelRect> clip = clipPixels(into.cr);
    const bool upright = device.b == 0 && device.c == 0;
    if (clip && upright) {
        clip->x += into.view.originX;
        clip->y += into.view.originY;
        cairo_surface_flush(into.surface);
        backdrop.draw(into.view, *clip, PixelRect::around(device.apply(rect)),
                      cornerRadius * std::abs(device.a));
        cairo_surface_mark_dirty(into.surface);
        return;
    }
    drawBackdropThroughShape(backdrop, rect, cornerRadius);
}

void CairoCanvas::State::drawBackdropThroughShape(const Backdrop& backdrop, Rect rect, double cornerRadius) {
    CairoTarget& into = target();
    const PixelRect area = backdrop.rect();
    CairoTarget whole;
    whole.pixels = GroupPixels::shared().take(static_cast<std::size_t>(area.area()));
    whole.view = {reinterpret_cast<std::uint8_t*>(whole.pixels.data()),
                  area.width,
                  area.height,
                  area.width * 4,
                  area.x,
                  area.y};
    backdrop.draw(whole.view, area, area, 0);
    whole.open();
    cairo_save(into.cr);
    if (cornerRadius > 0) {
        addPath(into.cr, Path::roundedRect(boundedForCairo(rect), cornerRadius));
    } else {
        cairo_new_path(into.cr);
        addRect(into.cr, rect);
    }
    cairo_identity_matrix(into.cr);
    cairo_set_source_surface(into.cr, whole.surface, area.x - into.view.originX, area.y - into.view.originY);
    cairo_pattern_set_filter(cairo_get_source(into.cr), CAIRO_FILTER_NEAREST);
    cairo_set_operator(into.cr, CAIRO_OPERATOR_SOURCE);
    cairo_fill(into.cr);
    cairo_restore(into.cr);
    whole.close();
    GroupPixels::shared().giveBack(std::move(whole.pixels));
}

} // namespace toolkit
