#include "platform/media/MPUTransportButton.h"

#include "platform/toolkit/rendering/Canvas.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace media {

namespace {

constexpr double highlightedAlpha = 0.35;

/// A triangle as high as `height`, pointing right from `left`.
Path triangle(Point left, double height) {
    const double width = height * 0.86;
    return Path()
        .moveTo({left.x, left.y - height / 2})
        .lineTo({left.x + width, left.y})
        .lineTo({left.x, left.y + height / 2})
        .close();
}

void drawPlay(Canvas& canvas, double height, Color color) {
    canvas.fillPath(triangle({-height * 0.36, 0}, height), color);
}

void drawPause(Canvas& canvas, double height, Color color) {
    const double width = height * 0.27;
    for (const double x : {-height * 0.41, height * 0.41 - width})
        canvas.fillRoundedRect({x, -height / 2, width, height}, width * 0.18, color);
}

/// Two triangles and a bar, pointing right.
void drawNext(Canvas& canvas, double height, Color color) {
    const double step = height * 0.8;
    canvas.fillPath(triangle({-step, 0}, height), color);
    canvas.fillPath(triangle({-step + height * 0.82, 0}, height), color);
    canvas.fillRoundedRect({-step + height * 1.66, -height / 2, height * 0.16, height}, height * 0.06, color);
}

const char* nameOf(TransportSign sign) {
    switch (sign) {
    case TransportSign::Previous:
        return "previous";
    case TransportSign::Play:
        return "play";
    case TransportSign::Pause:
        return "pause";
    case TransportSign::Next:
        break;
    }
    return "next";
}

} // namespace

runtime::Class& MPUTransportButton::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPUTransportButton>("MPUTransportButton", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPUTransportButton)

MPUTransportButton::MPUTransportButton(TransportSign sign, double signHeight)
    : sign_(sign), signHeight_(signHeight) {}

void MPUTransportButton::setSign(TransportSign sign) {
    if (sign == sign_)
        return;
    sign_ = sign;
    setNeedsDisplay();
}

void MPUTransportButton::setColor(Color color) {
    color_ = color;
    setNeedsDisplay();
}

void MPUTransportButton::highlightChanged() {
    setAlpha(isHighlighted() ? highlightedAlpha : 1);
}

void MPUTransportButton::drawContent(Canvas& canvas, Rect bounds) {
    canvas.save();
    canvas.concat(AffineTransform::translation(bounds.center().x, bounds.center().y));
    switch (sign_) {
    case TransportSign::Play:
        drawPlay(canvas, signHeight_, color_);
        break;
    case TransportSign::Pause:
        drawPause(canvas, signHeight_, color_);
        break;
    case TransportSign::Previous:
        canvas.concat(AffineTransform::scale(-1, 1));
        drawNext(canvas, signHeight_, color_);
        break;
    case TransportSign::Next:
        drawNext(canvas, signHeight_, color_);
        break;
    }
    canvas.restore();
}

void MPUTransportButton::describeProperties(nlohmann::json& properties) const {
    UIControl::describeProperties(properties);
    properties["sign"] = nameOf(sign_);
}

} // namespace media
