// The on-screen keyboard: types into whatever has the text focus.
#pragma once

#include "hosts/phone/screens/KeyCallout.h"
#include "hosts/phone/screens/KeyboardKey.h"
#include "platform/foundation/Handle.h"

#include <cstdint>
#include <map>

namespace phone {

class Keyboard : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// `hide` is called for the key that puts the keyboard away.
    explicit Keyboard(std::function<void()> hide);

    /// Back to the letters, with shift for a first letter.
    void reset();

    void layoutSubviews() override;
    toolkit::UIView* hitTest(toolkit::Point point) override;
    void touchesBegan(const toolkit::Touch& touch) override;
    void touchesMoved(const toolkit::Touch& touch) override;
    void touchesEnded(const toolkit::Touch& touch) override;
    void touchesCancelled(const toolkit::Touch& touch) override;
    void describeProperties(nlohmann::json& properties) const override;

    /// Height in points on a screen of that size, in that orientation.
    static double heightFor(toolkit::Size screen);

private:
    void showPage(KeyboardPage page);
    void setShift(ShiftState shift);
    std::shared_ptr<KeyboardKey> nearestKey(toolkit::Point point) const;
    void hold(std::int64_t touch, std::shared_ptr<KeyboardKey> key);
    void release(std::int64_t touch);
    void type(const KeyboardKey& key);
    void startDeleting();

    std::function<void()> hide_;
    KeyboardPage page_ = KeyboardPage::Letters;
    ShiftState shift_ = ShiftState::Once;
    double lastShiftTap_ = -1;
    toolkit::Size laidOut_;
    std::vector<std::shared_ptr<KeyboardKey>> keys_;
    std::shared_ptr<KeyCallout> callout_;
    std::map<std::int64_t, std::shared_ptr<KeyboardKey>> held_; // by touch
    foundation::Handle repeat_;
};

} // namespace phone
