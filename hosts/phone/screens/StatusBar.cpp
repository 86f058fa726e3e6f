#include "hosts/phone/screens/StatusBar.h"

#include "platform/toolkit/text/TextLayout.h"

#include <nlohmann/json.hpp>

#include <numbers>

using namespace toolkit;

namespace phone {

namespace {

constexpr double middle = StatusBar::height / 2;

void drawWirelessFan(Canvas& canvas, double left, Color ink) {
    const Point foot{left + 7, middle + 5};
    const double from = -0.75 * std::numbers::pi, to = -0.25 * std::numbers::pi;
    canvas.fillPath(Path().moveTo(foot).arc(foot, 3.2, from, to).close(), ink);
    for (double radius : {5.6, 9.0})
        canvas.strokePath(Path().arc(foot, radius, from, to), 1.7, LineCap::Butt, ink);
}

} // namespace

runtime::Class& StatusBar::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<StatusBar>("StatusBar", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(StatusBar)

StatusBar::StatusBar(WallClock& clock) : clock_(clock) {
    setUserInteractionEnabled(false);
    shownTime_ = WallClock::timeText(clock_.local());
    minute_ = clock_.addMinuteObserver([this] {
        shownTime_ = WallClock::timeText(clock_.local());
        setNeedsDisplay();
    });
}

void StatusBar::setStyle(StatusBarStyle style) {
    if (style == style_)
        return;
    style_ = style;
    setNeedsDisplay();
}

void StatusBar::setTimeShown(bool shown) {
    if (shown == timeShown_)
        return;
    timeShown_ = shown;
    setNeedsDisplay();
}

Color StatusBar::ink() const {
    return style_ == StatusBarStyle::LightContent ? Color::white(1) : Color::black();
}

void StatusBar::drawContent(Canvas& canvas, Rect bounds) {
    drawSignal(canvas);
    const double carrierEnd = drawText(canvas, "Vela", 46, false, 0);
    drawWirelessFan(canvas, carrierEnd + 4, ink());
    if (timeShown_)
        drawText(canvas, shownTime_, bounds.width / 2, true, 0.5);
    drawBattery(canvas, bounds.width - 6.5);
    drawText(canvas, "100%", bounds.width - 36, false, 1);
}

double StatusBar::drawText(Canvas& canvas, const std::string& text, double x, bool bold,
                           double anchor) const {
    TextStyle style;
    style.font = Font::system(12, bold ? FontWeight::Semibold : FontWeight::Regular);
    const TextLayout layout(text, style, -1);
    const Size size = layout.size();
    const double left = x - anchor * size.width;
    canvas.drawText(layout, {left, middle - size.height / 2}, ink());
    return left + size.width;
}

void StatusBar::drawSignal(Canvas& canvas) const {
    constexpr double diameter = 5.5, pitch = 7;
    for (int i = 0; i < 5; ++i) {
        const Rect dot{6.5 + pitch * i, middle - diameter / 2, diameter, diameter};
        if (i < 4)
            canvas.fillPath(Path::ellipse(dot), ink());
        else
            canvas.strokePath(Path::ellipse(dot.insetBy(0.5, 0.5)), 1, LineCap::Butt, ink());
    }
}

void StatusBar::drawBattery(Canvas& canvas, double right) const {
    const Rect shell{right - 24.5, middle - 5, 22, 10};
    canvas.strokePath(Path::roundedRect(shell.insetBy(0.5, 0.5), 2.2), 1, LineCap::Butt,
                      ink().withAlpha(0.75));
    canvas.fillRoundedRect(shell.insetBy(2, 2), 1.2, ink());
    canvas.fillRoundedRect({shell.maxX() + 1, middle - 2, 1.6, 4}, 0.8, ink().withAlpha(0.75));
}

void StatusBar::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["time"] = shownTime_;
    properties["style"] = style_ == StatusBarStyle::LightContent ? "light" : "dark";
}

} // namespace phone
