#include "KeyButton.h"

#include <utility>

namespace calculatorplugin {

using namespace vela::plugin;

namespace {

constexpr double slop = 14; // a finger may leave the key by so many points
constexpr double glowSeconds = 0.1;

} // namespace

KeyButton::KeyButton(Host& host, Key key, std::function<void(Key)> onPress)
    : host_(host), key_(key), onPress_(std::move(onPress)), area_(host.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { drawKey(canvas, bounds, key_, appearance_); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void KeyButton::setAwaiting(bool awaiting) {
    KeyAppearance appearance = appearance_;
    appearance.isAwaiting = awaiting;
    change(appearance);
}

void KeyButton::setClearsNumber(bool clearsNumber) {
    KeyAppearance appearance = appearance_;
    appearance.clearsNumber = clearsNumber;
    change(appearance);
}

void KeyButton::rest() {
    finger_.reset();
    afterglow_.reset();
    lightUp(false);
}

void KeyButton::touched(const Touch& touch) {
    if (touch.phase == TouchPhase::Began && !finger_)
        finger_ = touch.finger;
    if (finger_ != touch.finger)
        return;
    switch (touch.phase) {
    case TouchPhase::Began:
    case TouchPhase::Moved:
        afterglow_.reset();
        return lightUp(isOn(touch));
    case TouchPhase::Cancelled:
        return rest();
    case TouchPhase::Ended:
        finger_.reset();
        if (!isOn(touch))
            return lightUp(false);
        glow();
        return onPress_(key_);
    }
}

bool KeyButton::isOn(const Touch& touch) const {
    const Rect frame = area_->frame();
    return Rect{0, 0, frame.width, frame.height}.insetBy(-slop, -slop).contains(touch.point);
}

void KeyButton::glow() {
    lightUp(true);
    afterglow_ = host_.startTimer(glowSeconds, false, [this] {
        lightUp(false);
        afterglow_.reset();
    });
}

void KeyButton::lightUp(bool isPressed) {
    KeyAppearance appearance = appearance_;
    appearance.isPressed = isPressed;
    change(appearance);
}

void KeyButton::change(const KeyAppearance& appearance) {
    if (appearance == appearance_)
        return;
    appearance_ = appearance;
    area_->setNeedsDisplay();
}

} // namespace calculatorplugin
