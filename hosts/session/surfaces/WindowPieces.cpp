#include "hosts/session/surfaces/WindowPieces.h"

#include <cmath>

namespace session {

using toolkit::Rect;
using toolkit::TreePicture;

namespace {

int nearest(double points) {
    return static_cast<int>(std::lround(std::clamp(points, -1e6, 1e6)));
}

/// Edges go to the nearest whole points, so windows that touch each other still do.
PointRect onWholePoints(const Rect& rect) {
    const int left = nearest(rect.x), top = nearest(rect.y);
    return {left, top, nearest(rect.maxX()) - left, nearest(rect.maxY()) - top};
}

Rect scaled(const PointRect& rect, double factor) {
    return {rect.x * factor, rect.y * factor, rect.width * factor, rect.height * factor};
}

} // namespace

WindowPieces::WindowPieces(Globals& globals, SolidPixels& pixels, Glass& glass, wl_surface& stage)
    : glassPictures_(glass),
      color_(globals, pixels, stage),
      glass_(globals, pixels, stage),
      content_(globals, pixels, stage),
      buffers_(*globals.shm) {}

void WindowPieces::show(const TreePicture& window, toolkit::Size screen) {
    const TreePicture::Look& look = window.look();
    const PointRect frame = onWholePoints(look.frame);
    const PointRect seen = frame.intersection(onWholePoints({{0, 0}, screen}));
    showColor(look, seen);
    showGlass(look, seen);
    showContent(window, frame);
}

void WindowPieces::showColor(const TreePicture::Look& look, const PointRect& seen) {
    const std::uint32_t pixel = look.color ? SolidPixels::pixelOf(*look.color, look.opacity) : 0;
    if (pixel == 0)
        color_.hide();
    else
        color_.showPixel(pixel, seen);
}

void WindowPieces::showGlass(const TreePicture::Look& look, const PointRect& seen) {
    ShmBuffer* picture = look.glass ? glassPictures_.picture(*look.glass) : nullptr;
    if (!picture)
        return glass_.hide();
    const Rect whole = picture->view().rect().rect();
    glass_.showPicture(*picture, scaled(seen, glassPictures_.pixelsPerPoint()).intersection(whole), seen,
                       false);
}

void WindowPieces::showContent(const TreePicture& window, const PointRect& frame) {
    const TreePicture::Look& look = window.look();
    if (look.content.isEmpty())
        return content_.hide();
    const auto& damage = window.painted().damage;
    buffers_.note(damage);
    const bool changed = !damage.empty() || !shown_ || shownOpacity_ != look.opacity;
    if (changed)
        shown_ = buffers_.bringUpToDate(window.picture(), look.opacity);
    if (!shown_)
        return content_.hide();
    shownOpacity_ = look.opacity;
    PointRect place = onWholePoints(look.content);
    place.x += frame.x;
    place.y += frame.y;
    const auto pixels = shown_->view();
    const Rect source{0, 0, static_cast<double>(pixels.width), static_cast<double>(pixels.height)};
    content_.showPicture(*shown_, source, place, changed);
}

void WindowPieces::hide() {
    color_.hide();
    glass_.hide();
    content_.hide();
    shown_ = nullptr;
}

wl_surface& WindowPieces::stackAbove(wl_surface& other) {
    color_.placeAbove(other);
    glass_.placeAbove(*color_.surface());
    content_.placeAbove(*glass_.surface());
    return *content_.surface();
}

} // namespace session
