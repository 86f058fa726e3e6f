// From the contract's types to the toolkit's. What a plug-in hands over may be anything: numbers that are
// none become 0, and lengths stay within what a picture can have.
#pragma once

#include "platform/toolkit/gestures/Touch.h"
#include "platform/toolkit/rendering/Canvas.h"
#include "platform/toolkit/text/TextLayout.h"
#include "sdk/VelaPlugin.h"

namespace plugins {

namespace sdk = vela::plugin;

/// The farthest that a coordinate may lie, and the longest side of a child view, in points.
inline constexpr double farthestCoordinate = 100'000;

/// `value`, or the nearest within the limits; `least` for what is no number.
double within(double value, double least, double greatest);

double toCoordinate(double value);
toolkit::Point toToolkit(sdk::Point point);
toolkit::Size toToolkit(sdk::Size size);
toolkit::Rect toToolkit(sdk::Rect rect);
toolkit::Color toToolkit(sdk::Color color);
toolkit::Font toToolkit(sdk::Font font);
toolkit::TextAlignment toToolkit(sdk::Alignment alignment);
toolkit::LineCap toToolkit(sdk::LineCap cap);
toolkit::TextStyle toToolkit(const sdk::TextStyle& style);
toolkit::Path toToolkit(const sdk::Path& path);
std::vector<toolkit::GradientStop> toToolkit(const std::vector<sdk::GradientStop>& stops);

sdk::Size toPlugin(toolkit::Size size);
sdk::Rect toPlugin(toolkit::Rect rect);
/// The touch in the coordinates of `view`.
sdk::Touch toPlugin(const toolkit::Touch& touch, const toolkit::UIView& view);

} // namespace plugins
