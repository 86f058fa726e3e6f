#include "hosts/phone/screens/ClockFace.h"

#include <cmath>
#include <numbers>

using namespace toolkit;

namespace phone {

/// A bar that turns about the face's middle; its own rectangle reaches from tip to tail.
class ClockFace::Hand : public UIView {
public:
    explicit Hand(Color color) {
        setBackgroundColor(color);
        setUserInteractionEnabled(false);
    }
    /// Lengths in points on both sides of the middle.
    void place(Point middle, double reach, double tail, double width) {
        setBounds({0, 0, width, reach + tail});
        layer()->setAnchorPoint({0.5, reach / (reach + tail)});
        layer()->setPosition(middle);
        layer()->setCornerRadius(width / 2);
    }
    void turnTo(double turn) { setTransform(AffineTransform::rotation(turn * 2 * std::numbers::pi)); }
};

runtime::Class& ClockFace::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<ClockFace>("ClockFace", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ClockFace)

ClockFace::ClockFace(ClockFaceStyle style, SecondHand secondHand) : style_(style), secondHand_(secondHand) {
    const Color hands = style == ClockFaceStyle::Dark ? Color::white(1) : Color::rgba(0.10, 0.12, 0.18);
    hour_ = addHand(hands);
    minute_ = addHand(hands);
    second_ = addHand(Color::rgba(1, 0.48, 0.18));
    second_->setHidden(secondHand == SecondHand::Hidden);
    setUserInteractionEnabled(false);
}

std::shared_ptr<ClockFace::Hand> ClockFace::addHand(Color color) {
    auto hand = std::make_shared<Hand>(color);
    addSubview(hand);
    return hand;
}

void ClockFace::setTime(const std::tm& time) {
    const double minutes = time.tm_min + (secondHand_ == SecondHand::Shown ? time.tm_sec / 60.0 : 0.0);
    hour_->turnTo((time.tm_hour % 12 + minutes / 60.0) / 12);
    minute_->turnTo(minutes / 60);
    if (secondHand_ == SecondHand::Shown)
        second_->turnTo(time.tm_sec / 60.0);
}

void ClockFace::layoutSubviews() {
    const Point middle = bounds().center();
    const double radius = std::min(bounds().width, bounds().height) / 2;
    hour_->place(middle, radius * 0.50, 0, std::max(2.5, radius * 0.055));
    minute_->place(middle, radius * 0.74, 0, std::max(2.0, radius * 0.042));
    second_->place(middle, radius * 0.82, radius * 0.18, std::max(1.0, radius * 0.016));
}

void ClockFace::drawContent(Canvas& canvas, Rect bounds) {
    const Point middle = bounds.center();
    const double radius = std::min(bounds.width, bounds.height) / 2;
    const bool dark = style_ == ClockFaceStyle::Dark;
    const Color marks = dark ? Color::white(1) : Color::rgba(0.10, 0.12, 0.18);
    canvas.fillPath(Path::ellipse({middle.x - radius, middle.y - radius, 2 * radius, 2 * radius}),
                    dark ? Color::white(0.11) : Color::white(1, 0.96));
    for (int minute = 0; minute < 60; ++minute) {
        const bool quarter = minute % 15 == 0, hour = minute % 5 == 0;
        if (!hour && radius < 60)
            continue;
        const double angle = minute / 60.0 * 2 * std::numbers::pi;
        const Point out{std::sin(angle), -std::cos(angle)};
        const double inner = radius * (quarter ? 0.80 : hour ? 0.84 : 0.89), outer = radius * 0.92;
        canvas.strokePath(Path()
                              .moveTo({middle.x + out.x * inner, middle.y + out.y * inner})
                              .lineTo({middle.x + out.x * outer, middle.y + out.y * outer}),
                          radius * (quarter ? 0.030
                                    : hour  ? 0.022
                                            : 0.012),
                          LineCap::Round,
                          marks.withAlpha(quarter ? 0.95
                                          : hour  ? 0.6
                                                  : 0.3));
    }
    const double pin = std::max(2.5, radius * 0.055);
    canvas.fillPath(Path::ellipse({middle.x - pin, middle.y - pin, 2 * pin, 2 * pin}), marks);
}

} // namespace phone
