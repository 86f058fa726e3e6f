#include "hosts/phone/screens/Keyboard.h"

#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/gestures/Touch.h"
#include "platform/toolkit/views/TextInput.h"

#include <nlohmann/json.hpp>

#include <limits>

using namespace toolkit;

namespace phone {

namespace {

constexpr double shiftLockInterval = 0.3; // seconds between the taps that lock shift
constexpr double repeatDelay = 0.5;       // until a held backspace repeats
constexpr double repeatInterval = 0.1;

void deleteBackward() {
    if (TextInput* input = TextInput::current())
        input->deleteBackward();
}

} // namespace

runtime::Class& Keyboard::staticClass() {
    static runtime::Class& cls = runtime::ClassBuilder<Keyboard>("Keyboard", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(Keyboard)

Keyboard::Keyboard(std::function<void()> hide)
    : hide_(std::move(hide)), callout_(std::make_shared<KeyCallout>()) {
    setBackgroundColor(Color::rgba(0.82, 0.835, 0.86));
    addSubview(callout_);
}

double Keyboard::heightFor(Size screen) {
    const bool tablet = std::min(screen.width, screen.height) >= 600;
    const bool portrait = screen.height >= screen.width;
    return tablet ? (portrait ? 264 : 352) : (portrait ? 216 : 162);
}

void Keyboard::reset() {
    setShift(ShiftState::Once);
    showPage(KeyboardPage::Letters);
}

void Keyboard::showPage(KeyboardPage page) {
    page_ = page;
    laidOut_ = {};
    setNeedsLayout();
}

void Keyboard::setShift(ShiftState shift) {
    shift_ = shift;
    for (const auto& key : keys_)
        key->setShift(shift);
}

void Keyboard::layoutSubviews() {
    if (bounds().size() == laidOut_)
        return;
    laidOut_ = bounds().size();
    for (const auto& key : keys_)
        key->removeFromSuperview();
    keys_.clear();
    for (KeyPlace& place : layOutKeys(page_, laidOut_)) {
        auto key = std::make_shared<KeyboardKey>(std::move(place));
        key->setShift(shift_);
        keys_.push_back(key);
        addSubview(key);
    }
    bringSubviewToFront(*callout_);
}

UIView* Keyboard::hitTest(Point point) {
    return pointInside(point) ? this : nullptr;
}

std::shared_ptr<KeyboardKey> Keyboard::nearestKey(Point point) const {
    std::shared_ptr<KeyboardKey> nearest;
    double best = std::numeric_limits<double>::infinity();
    for (const auto& key : keys_) {
        const Rect frame = key->place().frame;
        const double dx = point.x - std::clamp(point.x, frame.x, frame.maxX());
        const double dy = point.y - std::clamp(point.y, frame.y, frame.maxY());
        const double distance = dx * dx + dy * dy;
        if (distance < best) {
            best = distance;
            nearest = key;
        }
    }
    return nearest;
}

void Keyboard::hold(std::int64_t touch, std::shared_ptr<KeyboardKey> key) {
    release(touch);
    if (!key)
        return;
    held_[touch] = key;
    key->setPressed(key->place().role != KeyRole::Text);
    if (key->place().role == KeyRole::Text)
        callout_->show(key->typedText(), key->place().frame, bounds().width);
}

void Keyboard::release(std::int64_t touch) {
    const auto found = held_.find(touch);
    if (found == held_.end())
        return;
    found->second->setPressed(false);
    held_.erase(found);
    callout_->setHidden(true);
    repeat_.reset();
}

void Keyboard::touchesBegan(const Touch& touch) {
    auto key = nearestKey(touch.locationIn(this));
    hold(touch.identifier, key);
    if (key && key->place().role == KeyRole::Backspace)
        startDeleting();
}

void Keyboard::startDeleting() {
    deleteBackward();
    repeat_ = foundation::RunLoop::main().scheduleTimer(repeatDelay, false, [this] {
        repeat_ = foundation::RunLoop::main().scheduleTimer(repeatInterval, true, deleteBackward);
    });
}

void Keyboard::touchesMoved(const Touch& touch) {
    const auto found = held_.find(touch.identifier);
    if (found == held_.end() || found->second->place().role != KeyRole::Text)
        return;
    auto key = nearestKey(touch.locationIn(this));
    if (key != found->second && key->place().role == KeyRole::Text)
        hold(touch.identifier, key);
}

void Keyboard::touchesEnded(const Touch& touch) {
    const auto found = held_.find(touch.identifier);
    if (found == held_.end())
        return;
    const auto key = found->second;
    release(touch.identifier);
    type(*key);
}

void Keyboard::touchesCancelled(const Touch& touch) {
    release(touch.identifier);
}

void Keyboard::type(const KeyboardKey& key) {
    switch (key.place().role) {
    case KeyRole::Text:
    case KeyRole::Space:
    case KeyRole::Return:
        if (TextInput* input = TextInput::current())
            input->insertText(key.typedText());
        if (shift_ == ShiftState::Once)
            setShift(ShiftState::Off);
        return;
    case KeyRole::Shift: {
        const double now = foundation::RunLoop::main().now();
        const bool second = lastShiftTap_ >= 0 && now - lastShiftTap_ < shiftLockInterval;
        lastShiftTap_ = now;
        setShift(second                      ? ShiftState::Locked
                 : shift_ == ShiftState::Off ? ShiftState::Once
                                             : ShiftState::Off);
        return;
    }
    case KeyRole::Page:
        return showPage(key.place().page);
    case KeyRole::Hide:
        return hide_();
    case KeyRole::Backspace:
        return; // has done its work when the finger went down
    }
}

void Keyboard::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["page"] = page_ == KeyboardPage::Letters  ? "letters"
                         : page_ == KeyboardPage::Digits ? "digits"
                                                         : "symbols";
    properties["shift"] = shift_ == ShiftState::Off ? "off" : shift_ == ShiftState::Once ? "once" : "locked";
}

} // namespace phone
