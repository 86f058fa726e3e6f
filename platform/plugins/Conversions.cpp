#include "platform/plugins/Conversions.h"

#include <cmath>

namespace plugins {

namespace {

constexpr double greatestFontSize = 1000; // points
constexpr int mostLines = 10'000;
/// Beyond this many pieces a path is cut off: drawing it would stop the phone.
constexpr std::size_t mostPathElements = 200'000;

void add(toolkit::Path& path, const sdk::Path::Element& element) {
    switch (element.kind) {
    case sdk::Path::Kind::Move:
        path.moveTo(toToolkit(element.to));
        break;
    case sdk::Path::Kind::Line:
        path.lineTo(toToolkit(element.to));
        break;
    case sdk::Path::Kind::Curve:
        path.curveTo(toToolkit(element.control1), toToolkit(element.control2), toToolkit(element.to));
        break;
    case sdk::Path::Kind::Arc:
        path.arc(toToolkit(element.to), within(element.control1.x, 0, farthestCoordinate),
                 toCoordinate(element.control1.y), toCoordinate(element.control2.x));
        break;
    case sdk::Path::Kind::Close:
        path.close();
        break;
    }
}

} // namespace

double within(double value, double least, double greatest) {
    return value > least ? std::min(value, greatest) : least;
}

double toCoordinate(double value) {
    return std::isnan(value) ? 0 : within(value, -farthestCoordinate, farthestCoordinate);
}

toolkit::Point toToolkit(sdk::Point point) {
    return {toCoordinate(point.x), toCoordinate(point.y)};
}

toolkit::Size toToolkit(sdk::Size size) {
    return {within(size.width, 0, farthestCoordinate), within(size.height, 0, farthestCoordinate)};
}

toolkit::Rect toToolkit(sdk::Rect rect) {
    return {toToolkit(sdk::Point{rect.x, rect.y}), toToolkit(rect.size())};
}

toolkit::Color toToolkit(sdk::Color color) {
    return {within(color.red, 0, 1), within(color.green, 0, 1), within(color.blue, 0, 1),
            within(color.alpha, 0, 1)};
}

toolkit::Font toToolkit(sdk::Font font) {
    static constexpr toolkit::FontWeight weights[]{toolkit::FontWeight::Thin,     toolkit::FontWeight::Light,
                                                   toolkit::FontWeight::Regular,  toolkit::FontWeight::Medium,
                                                   toolkit::FontWeight::Semibold, toolkit::FontWeight::Bold};
    const auto index = static_cast<std::size_t>(font.weight);
    return {within(font.size, 1, greatestFontSize),
            index < std::size(weights) ? weights[index] : toolkit::FontWeight::Regular,
            font.monospacedDigits};
}

toolkit::TextAlignment toToolkit(sdk::Alignment alignment) {
    switch (alignment) {
    case sdk::Alignment::Center:
        return toolkit::TextAlignment::Center;
    case sdk::Alignment::Right:
        return toolkit::TextAlignment::Right;
    case sdk::Alignment::Left:
        break;
    }
    return toolkit::TextAlignment::Left;
}

toolkit::LineCap toToolkit(sdk::LineCap cap) {
    switch (cap) {
    case sdk::LineCap::Butt:
        return toolkit::LineCap::Butt;
    case sdk::LineCap::Square:
        return toolkit::LineCap::Square;
    case sdk::LineCap::Round:
        break;
    }
    return toolkit::LineCap::Round;
}

toolkit::TextStyle toToolkit(const sdk::TextStyle& style) {
    toolkit::TextStyle result;
    result.font = toToolkit(style.font);
    result.alignment = toToolkit(style.alignment);
    result.numberOfLines = std::clamp(style.lines, 0, mostLines);
    result.lineBreak =
        result.numberOfLines == 0 ? toolkit::LineBreak::WordWrap : toolkit::LineBreak::TruncateTail;
    return result;
}

toolkit::Path toToolkit(const sdk::Path& path) {
    toolkit::Path result;
    const auto& elements = path.elements();
    for (std::size_t i = 0; i < std::min(elements.size(), mostPathElements); ++i)
        add(result, elements[i]);
    return result;
}

std::vector<toolkit::GradientStop> toToolkit(const std::vector<sdk::GradientStop>& stops) {
    std::vector<toolkit::GradientStop> result;
    for (const auto& stop : stops)
        result.push_back({within(stop.location, 0, 1), toToolkit(stop.color)});
    return result;
}

sdk::Size toPlugin(toolkit::Size size) {
    return {size.width, size.height};
}

sdk::Rect toPlugin(toolkit::Rect rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

sdk::Touch toPlugin(const toolkit::Touch& touch, const toolkit::UIView& view) {
    static constexpr sdk::TouchPhase phases[]{sdk::TouchPhase::Began, sdk::TouchPhase::Moved,
                                              sdk::TouchPhase::Ended, sdk::TouchPhase::Cancelled};
    const toolkit::Point point = touch.locationIn(&view);
    return {
        touch.identifier, phases[static_cast<std::size_t>(touch.phase)], {point.x, point.y}, touch.timestamp};
}

} // namespace plugins
