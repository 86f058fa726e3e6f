#include "platform/toolkit/rendering/RecordingCanvas.h"

#include "platform/toolkit/text/TextLayout.h"

#include <cmath>
#include <cstdio>

namespace toolkit {

namespace {

/// "open one, two, three close".
std::string listed(const char* open, std::initializer_list<double> values, const char* close) {
    std::string text = open;
    for (const double value : values) {
        char number[32];
        std::snprintf(number, sizeof number, "%.6g", value == 0 ? 0 : value); // no "-0"
        if (text != open)
            text += ", ";
        text += number;
    }
    return text += close;
}

std::string describe(double value) {
    return listed("", {value}, "");
}

std::string describe(Point p) {
    return listed("(", {p.x, p.y}, ")");
}

std::string describe(Size size) {
    return describe(size.width) + "x" + describe(size.height);
}

std::string describe(const Rect& rect) {
    return listed("[", {rect.x, rect.y, rect.width, rect.height}, "]");
}

std::string describe(const Color& color) {
    return listed("rgba(", {color.red, color.green, color.blue, color.alpha}, ")");
}

std::string describe(const AffineTransform& t) {
    return listed("{", {t.a, t.b, t.c, t.d, t.tx, t.ty}, "}");
}

std::string describe(const std::vector<GradientStop>& stops) {
    std::string text;
    for (const GradientStop& stop : stops) {
        if (!text.empty())
            text += ' ';
        text += describe(stop.location) + ":" + describe(stop.color);
    }
    return text;
}

std::string describe(const Image& image) {
    return std::string("image ") + std::to_string(image.pixelWidth()) + "x" +
           std::to_string(image.pixelHeight()) + "@" + describe(image.scale());
}

struct ElementDescriber {
    std::string operator()(const Path::Move& e) const { return std::string("M") + describe(e.to); }
    std::string operator()(const Path::Line& e) const { return std::string("L") + describe(e.to); }
    std::string operator()(const Path::Curve& e) const {
        return std::string("C") + describe(e.control1) + describe(e.control2) + describe(e.to);
    }
    std::string operator()(const Path::Arc& e) const {
        return std::string("A") + describe(e.center) + describe(e.radius) + " " + describe(e.start) + ".." +
               describe(e.end);
    }
    std::string operator()(const Path::Close&) const { return "Z"; }
};

std::string describe(const Path& path) {
    std::string text;
    for (const Path::Element& element : path.elements())
        text += std::visit(ElementDescriber(), element);
    return text;
}

/// The text in quotes, with line breaks and other control characters made visible.
std::string describe(const TextLayout& layout) {
    std::string text = "\"";
    for (const char c : layout.text()) {
        if (c == '\n')
            text += "\\n";
        else if (static_cast<unsigned char>(c) < ' ' || c == '"' || c == '\\')
            text += std::string("\\x") + "0123456789abcdef"[(c >> 4) & 15] + "0123456789abcdef"[c & 15];
        else
            text += c;
    }
    return text + "\" size " + describe(layout.style().font.size) + " weight " +
           std::to_string(static_cast<int>(layout.style().font.weight));
}

std::string describe(LineCap cap) {
    return cap == LineCap::Round ? "round" : (cap == LineCap::Square ? "square" : "butt");
}
std::string describe(ImageFilter filter) {
    return filter == ImageFilter::Nearest ? "nearest" : "smooth";
}
std::string describe(BackdropStyle style) {
    return style == BackdropStyle::Dark ? "dark" : "light";
}
std::string describe(GroupBlend blend) {
    return blend == GroupBlend::Normal
               ? "normal"
               : (blend == GroupBlend::VibrancyDark ? "vibrancy-dark" : "vibrancy-light");
}

} // namespace

template <typename... Arguments>
void RecordingCanvas::add(const char* name, const Arguments&... arguments) {
    std::string text;
    [[maybe_unused]] const auto append = [&text](const std::string& argument) {
        if (!text.empty())
            text += ' ';
        text += argument;
    };
    (append(describe(arguments)), ...);
    commands_.push_back({name, std::move(text)});
}

std::vector<std::string> RecordingCanvas::lines() const {
    std::vector<std::string> result;
    for (const Command& command : commands_)
        result.push_back(command.line());
    return result;
}

std::size_t RecordingCanvas::count(std::string_view name) const {
    return static_cast<std::size_t>(std::count_if(
        commands_.begin(), commands_.end(), [name](const Command& command) { return command.name == name; }));
}

void RecordingCanvas::save() {
    add("save");
}
void RecordingCanvas::restore() {
    add("restore");
}
void RecordingCanvas::concat(const AffineTransform& transform) {
    add("concat", transform);
}
void RecordingCanvas::clipRect(Rect rect) {
    add("clipRect", rect);
}
void RecordingCanvas::clipRoundedRect(Rect rect, double radius) {
    add("clipRoundedRect", rect, radius);
}
void RecordingCanvas::fillRect(Rect rect, Color color) {
    add("fillRect", rect, color);
}
void RecordingCanvas::fillRoundedRect(Rect rect, double radius, Color color) {
    add("fillRoundedRect", rect, radius, color);
}
void RecordingCanvas::fillPath(const Path& path, Color color) {
    add("fillPath", path, color);
}
void RecordingCanvas::strokePath(const Path& path, double width, LineCap cap, Color color) {
    add("strokePath", path, width, cap, color);
}
void RecordingCanvas::fillLinearGradient(Rect rect, Point from, Point to,
                                         const std::vector<GradientStop>& stops) {
    add("fillLinearGradient", rect, from, to, stops);
}
void RecordingCanvas::fillRadialGradient(Rect rect, Point center, double radius,
                                         const std::vector<GradientStop>& stops) {
    add("fillRadialGradient", rect, center, radius, stops);
}
void RecordingCanvas::drawImage(const Image& image, Rect into, double opacity, ImageFilter filter) {
    add("drawImage", image, into, opacity, filter);
}
void RecordingCanvas::drawText(const TextLayout& text, Point topLeft, Color color) {
    add("drawText", text, topLeft, color);
}
void RecordingCanvas::drawShadow(Rect rect, double cornerRadius, double blur, Size offset, Color color) {
    add("drawShadow", rect, cornerRadius, blur, offset, color);
}
void RecordingCanvas::drawBackdrop(Rect rect, double cornerRadius, BackdropStyle style) {
    add("drawBackdrop", rect, cornerRadius, style);
}
void RecordingCanvas::beginGroup(Rect bounds, double opacity, GroupBlend blend) {
    add("beginGroup", bounds, opacity, blend);
}
void RecordingCanvas::endGroup() {
    add("endGroup");
}
void RecordingCanvas::endGroupMasked(Rect maskRect, Point from, Point to,
                                     const std::vector<GradientStop>& stops) {
    add("endGroupMasked", maskRect, from, to, stops);
}

} // namespace toolkit
