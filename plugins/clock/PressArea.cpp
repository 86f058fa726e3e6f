#include "PressArea.h"

#include <utility>

namespace clockplugin {

using namespace vela::plugin;

namespace {

constexpr double slop = 16; // a finger may leave the area by so many points

} // namespace

PressArea::PressArea(Container& container, Draw draw, Tap tap)
    : draw_(std::move(draw)), tap_(std::move(tap)), area_(container.addDrawnArea()) {
    area_->onDraw([this](Canvas& canvas, Rect bounds) { draw_(canvas, bounds, isPressed_); });
    area_->onTouch([this](const Touch& touch) { touched(touch); });
}

void PressArea::setFrame(Rect frame) {
    if (frame == area_->frame())
        return;
    area_->setFrame(frame);
    area_->setNeedsDisplay();
}

void PressArea::setEnabled(bool enabled) {
    if (enabled == isEnabled_)
        return;
    isEnabled_ = enabled;
    if (!enabled) {
        finger_.reset();
        isPressed_ = false;
    }
    area_->setNeedsDisplay();
}

void PressArea::touched(const Touch& touch) {
    if (!isEnabled_)
        return;
    if (touch.phase == TouchPhase::Began && !finger_)
        finger_ = touch.finger;
    if (finger_ != touch.finger)
        return;
    if (touch.phase == TouchPhase::Began || touch.phase == TouchPhase::Moved)
        return setPressed(isOn(touch));
    finger_.reset();
    setPressed(false);
    if (touch.phase == TouchPhase::Cancelled || !isOn(touch))
        return;
    const Tap tap = tap_; // which may destroy this
    tap(touch.point);
}

bool PressArea::isOn(const Touch& touch) const {
    const Rect frame = area_->frame();
    return Rect{0, 0, frame.width, frame.height}.insetBy(-slop, -slop).contains(touch.point);
}

void PressArea::setPressed(bool pressed) {
    if (pressed == isPressed_)
        return;
    isPressed_ = pressed;
    area_->setNeedsDisplay();
}

} // namespace clockplugin
