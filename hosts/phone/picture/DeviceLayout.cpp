#include "hosts/phone/picture/DeviceLayout.h"

#include <cmath>
#include <numbers>

namespace phone {

namespace {

using toolkit::AffineTransform;
using toolkit::DeviceOrientation;
using toolkit::Point;
using toolkit::Size;

/// How much smaller than possible the picture may become for the sake of whole pixels, and how much larger:
/// the margin around the body is wide enough for that.
constexpr double snapDown = 1.15;
constexpr double snapUp = 0.97;
constexpr double leastScale = 0.05;

double snapped(double scale, double pixelsPerUnit, double screenScale) {
    const double ratio = scale * pixelsPerUnit / screenScale;
    const double whole = std::max(0.5, std::floor(ratio / snapUp));
    return ratio >= whole * snapUp && ratio < whole * snapDown ? scale * whole / ratio : scale;
}

bool isQuarterTurn(double angle) {
    const double quarters = angle / (std::numbers::pi / 2);
    return std::abs(quarters - std::round(quarters)) < 1e-9;
}

AffineTransform bodyMap(const DevicePicture& picture, const DeviceLayout& layout) {
    const Size body = picture.bodySize();
    return AffineTransform::translation(-body.width / 2, -body.height / 2)
        .then(AffineTransform::rotation(layout.angle))
        .then(AffineTransform::scale(layout.scale, layout.scale))
        .then(AffineTransform::translation(layout.center.x, layout.center.y));
}

} // namespace

DeviceLayout DeviceLayout::fit(const DevicePicture& picture, const Fitting& fitting) {
    const double width = picture.bodySize().width + 2 * DevicePicture::margin;
    const double height = picture.bodySize().height + 2 * DevicePicture::margin;
    const double cosine = std::abs(std::cos(fitting.fittedAngle));
    const double sine = std::abs(std::sin(fitting.fittedAngle));
    const Size turned{width * cosine + height * sine, width * sine + height * cosine};
    const double pixelsPerUnit = fitting.pixelsPerUnit;

    DeviceLayout layout;
    layout.angle = fitting.angle;
    layout.center = {fitting.area.width / 2, fitting.area.height / 2};
    const double largest = std::min(fitting.area.width / turned.width, fitting.area.height / turned.height);
    layout.scale = snapped(std::max(leastScale, largest), pixelsPerUnit, fitting.screenScale);
    layout.bodyToArea = bodyMap(picture, layout);
    if (isQuarterTurn(fitting.angle)) {
        // A corner of the screen on a corner of a pixel.
        const Point corner = layout.bodyToArea.apply(picture.screen().origin());
        layout.center.x += std::round(corner.x * pixelsPerUnit) / pixelsPerUnit - corner.x;
        layout.center.y += std::round(corner.y * pixelsPerUnit) / pixelsPerUnit - corner.y;
        layout.bodyToArea = bodyMap(picture, layout);
    }
    return layout;
}

std::optional<double> DeviceLayout::angleOf(DeviceOrientation orientation) {
    switch (orientation) {
    case DeviceOrientation::Portrait:
        return 0;
    case DeviceOrientation::PortraitUpsideDown:
        return std::numbers::pi;
    case DeviceOrientation::LandscapeLeft:
        return -std::numbers::pi / 2; // the Home button to the right
    case DeviceOrientation::LandscapeRight:
        return std::numbers::pi / 2;
    case DeviceOrientation::Unknown:
    case DeviceOrientation::FaceUp:
    case DeviceOrientation::FaceDown:
        break;
    }
    return std::nullopt;
}

AffineTransform DeviceLayout::screenToBody(const DevicePicture& picture, int interfaceOrientation) {
    // The interface is turned against the body as the body is turned for it to stand upright.
    const double angle = -angleOf(DeviceOrientation{interfaceOrientation}).value_or(0);
    const toolkit::Rect screen = picture.screen();
    const bool landscape = interfaceOrientation == 3 || interfaceOrientation == 4;
    const double width = landscape ? screen.height : screen.width;
    const double height = landscape ? screen.width : screen.height;
    return AffineTransform::translation(-width / 2, -height / 2)
        .then(AffineTransform::rotation(angle))
        .then(AffineTransform::translation(screen.center().x, screen.center().y));
}

} // namespace phone
