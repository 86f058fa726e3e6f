#include "platform/plugins/PluginCanvas.h"

#include "platform/plugins/PluginImage.h"

#include <cmath>
#include <stdexcept>

namespace plugins {

namespace {

/// Scales outside of this leave nothing that could be seen, or flatten the plane for good.
constexpr double leastScale = 1e-4;
constexpr double greatestScale = 1e4;
/// A plug-in that saves without end must not fill the memory.
constexpr int mostSaved = 1000;

double toScale(double scale) {
    return std::copysign(within(std::abs(scale), leastScale, greatestScale), scale);
}

double shift(sdk::VerticalAlignment alignment, double room) {
    switch (alignment) {
    case sdk::VerticalAlignment::Middle:
        return room / 2;
    case sdk::VerticalAlignment::Bottom:
        return room;
    case sdk::VerticalAlignment::Top:
        break;
    }
    return 0;
}

} // namespace

PluginCanvas::PluginCanvas(toolkit::Canvas& canvas) : canvas_(canvas) {
    canvas_.save();
}

PluginCanvas::~PluginCanvas() {
    for (; saved_ >= 0; --saved_)
        canvas_.restore();
}

void PluginCanvas::save() {
    if (saved_ == mostSaved)
        throw std::length_error("the canvas was saved too often");
    canvas_.save();
    ++saved_;
}

void PluginCanvas::restore() {
    if (saved_ == 0)
        return;
    canvas_.restore();
    --saved_;
}

void PluginCanvas::translate(double x, double y) {
    canvas_.concat(toolkit::AffineTransform::translation(toCoordinate(x), toCoordinate(y)));
}

void PluginCanvas::scale(double x, double y) {
    canvas_.concat(toolkit::AffineTransform::scale(toScale(x), toScale(y)));
}

void PluginCanvas::rotate(double angle) {
    canvas_.concat(toolkit::AffineTransform::rotation(toCoordinate(angle)));
}

void PluginCanvas::clip(sdk::Rect rect, double cornerRadius) {
    if (cornerRadius > 0)
        canvas_.clipRoundedRect(toToolkit(rect), within(cornerRadius, 0, farthestCoordinate));
    else
        canvas_.clipRect(toToolkit(rect));
}

void PluginCanvas::fill(sdk::Rect rect, sdk::Color color) {
    canvas_.fillRect(toToolkit(rect), toToolkit(color));
}

void PluginCanvas::fillRounded(sdk::Rect rect, double cornerRadius, sdk::Color color) {
    canvas_.fillRoundedRect(toToolkit(rect), within(cornerRadius, 0, farthestCoordinate), toToolkit(color));
}

void PluginCanvas::fillEllipse(sdk::Rect rect, sdk::Color color) {
    canvas_.fillPath(toolkit::Path::ellipse(toToolkit(rect)), toToolkit(color));
}

void PluginCanvas::fill(const sdk::Path& path, sdk::Color color) {
    canvas_.fillPath(toToolkit(path), toToolkit(color));
}

void PluginCanvas::fillGradient(sdk::Rect rect, sdk::Point from, sdk::Point to,
                                const std::vector<sdk::GradientStop>& stops) {
    canvas_.fillLinearGradient(toToolkit(rect), toToolkit(from), toToolkit(to), toToolkit(stops));
}

void PluginCanvas::stroke(const sdk::Path& path, double width, sdk::Color color, sdk::LineCap cap) {
    canvas_.strokePath(toToolkit(path), within(width, 0, farthestCoordinate), toToolkit(cap),
                       toToolkit(color));
}

void PluginCanvas::drawImage(const sdk::Image& image, sdk::Rect into, double opacity) {
    // Only pictures that the host has made are pictures.
    if (const auto* known = dynamic_cast<const PluginImage*>(&image))
        canvas_.drawImage(*known->image(), toToolkit(into), within(opacity, 0, 1));
}

void PluginCanvas::drawText(std::string_view text, sdk::Rect rect, const sdk::TextStyle& style,
                            sdk::Color color) {
    const toolkit::Rect area = toToolkit(rect);
    const toolkit::TextLayout layout(std::string(text), toToolkit(style), area.width);
    const double room = area.height - layout.size().height;
    canvas_.drawText(layout, {area.x, area.y + shift(style.verticalAlignment, room)}, toToolkit(color));
}

} // namespace plugins
