// One key of the on-screen keyboard, as it looks. The keyboard decides what is pressed.
#pragma once

#include "hosts/phone/screens/KeyboardLayout.h"
#include "platform/toolkit/views/UIView.h"

namespace phone {

enum class ShiftState { Off, Once, Locked };

class KeyboardKey : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit KeyboardKey(KeyPlace place);

    const KeyPlace& place() const { return place_; }
    /// What the key types now.
    std::string typedText() const;
    void setShift(ShiftState shift);
    void setPressed(bool pressed);
    bool isPressed() const { return pressed_; }

    bool drawsContent() const override { return true; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void describeProperties(nlohmann::json& properties) const override;

    /// Drawn around the key, for its shadow.
    static constexpr double margin = 2; // points

private:
    std::string caption() const;
    bool isLight() const;
    void drawBackspace(toolkit::Canvas& canvas, toolkit::Point center) const;
    void drawShift(toolkit::Canvas& canvas, toolkit::Point center) const;
    void drawHide(toolkit::Canvas& canvas, toolkit::Point center) const;

    KeyPlace place_;
    ShiftState shift_ = ShiftState::Off;
    bool pressed_ = false;
};

} // namespace phone
