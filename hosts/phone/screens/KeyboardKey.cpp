#include "hosts/phone/screens/KeyboardKey.h"

#include "platform/toolkit/text/TextLayout.h"

#include <nlohmann/json.hpp>

using namespace toolkit;

namespace phone {

namespace {

const Color ink = Color::white(0.04);
const Color lightKey = Color::white(1);
const Color greyKey = Color::rgba(0.675, 0.70, 0.74);

} // namespace

runtime::Class& KeyboardKey::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<KeyboardKey>("KeyboardKey", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(KeyboardKey)

KeyboardKey::KeyboardKey(KeyPlace place)
    : UIView(place.frame.insetBy(-margin, -margin)), place_(std::move(place)) {
    setUserInteractionEnabled(false);
}

std::string KeyboardKey::typedText() const {
    const bool letter = place_.text.size() == 1 && place_.text[0] >= 'a' && place_.text[0] <= 'z';
    if (letter && shift_ != ShiftState::Off)
        return std::string(1, static_cast<char>(place_.text[0] - 'a' + 'A'));
    return place_.text;
}

void KeyboardKey::setShift(ShiftState shift) {
    if (shift == shift_)
        return;
    shift_ = shift;
    setNeedsDisplay();
}

void KeyboardKey::setPressed(bool pressed) {
    if (pressed == pressed_)
        return;
    pressed_ = pressed;
    setNeedsDisplay();
}

std::string KeyboardKey::caption() const {
    switch (place_.role) {
    case KeyRole::Text:
        return typedText();
    case KeyRole::Space:
        return "space";
    case KeyRole::Return:
        return "return";
    case KeyRole::Page:
        return place_.page == KeyboardPage::Letters  ? "ABC"
               : place_.page == KeyboardPage::Digits ? "123"
                                                     : "#+=";
    default:
        return "";
    }
}

bool KeyboardKey::isLight() const {
    const bool light = place_.role == KeyRole::Text || place_.role == KeyRole::Space ||
                       (place_.role == KeyRole::Shift && shift_ != ShiftState::Off);
    return light != pressed_;
}

void KeyboardKey::drawContent(Canvas& canvas, Rect bounds) {
    const Rect key = bounds.insetBy(margin, margin);
    canvas.fillRoundedRect(key.offsetBy(0, 1), 5, Color::rgba(0.53, 0.54, 0.56));
    canvas.fillRoundedRect(key, 5, isLight() ? lightKey : greyKey);
    switch (place_.role) {
    case KeyRole::Backspace:
        return drawBackspace(canvas, key.center());
    case KeyRole::Shift:
        return drawShift(canvas, key.center());
    case KeyRole::Hide:
        return drawHide(canvas, key.center());
    default:
        break;
    }
    TextStyle style;
    style.font =
        place_.role == KeyRole::Text ? Font::system(std::min(23.0, key.height * 0.58)) : Font::system(16);
    const TextLayout layout(caption(), style, -1);
    const Size size = layout.size();
    canvas.drawText(layout, {key.center().x - size.width / 2, key.center().y - size.height / 2}, ink);
}

void KeyboardKey::drawBackspace(Canvas& canvas, Point c) const {
    canvas.strokePath(Path()
                          .moveTo({c.x - 11, c.y})
                          .lineTo({c.x - 4.5, c.y - 7})
                          .lineTo({c.x + 10.5, c.y - 7})
                          .lineTo({c.x + 10.5, c.y + 7})
                          .lineTo({c.x - 4.5, c.y + 7})
                          .close(),
                      1.6, LineCap::Round, ink);
    for (double direction : {-1.0, 1.0})
        canvas.strokePath(
            Path().moveTo({c.x - 0.5, c.y - 3 * direction}).lineTo({c.x + 5.5, c.y + 3 * direction}), 1.6,
            LineCap::Round, ink);
}

void KeyboardKey::drawShift(Canvas& canvas, Point c) const {
    const Path arrow = Path()
                           .moveTo({c.x, c.y - 9})
                           .lineTo({c.x + 9, c.y})
                           .lineTo({c.x + 4.2, c.y})
                           .lineTo({c.x + 4.2, c.y + 7})
                           .lineTo({c.x - 4.2, c.y + 7})
                           .lineTo({c.x - 4.2, c.y})
                           .lineTo({c.x - 9, c.y})
                           .close();
    if (shift_ == ShiftState::Off)
        canvas.strokePath(arrow, 1.6, LineCap::Round, ink);
    else
        canvas.fillPath(arrow, ink);
    if (shift_ == ShiftState::Locked)
        canvas.fillRect({c.x - 4.2, c.y + 8.8, 8.4, 1.8}, ink);
}

void KeyboardKey::drawHide(Canvas& canvas, Point c) const {
    canvas.strokePath(Path::roundedRect({c.x - 10.5, c.y - 8.5, 21, 11}, 2), 1.4, LineCap::Round, ink);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 4; ++column)
            canvas.fillRect({c.x - 7.5 + 4.3 * column, c.y - 6 + 3.4 * row, 2, 2}, ink);
    canvas.strokePath(
        Path().moveTo({c.x - 3.5, c.y + 5.5}).lineTo({c.x, c.y + 9}).lineTo({c.x + 3.5, c.y + 5.5}), 1.4,
        LineCap::Round, ink);
}

void KeyboardKey::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["caption"] = caption();
    properties["pressed"] = pressed_;
}

} // namespace phone
