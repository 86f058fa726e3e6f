// A switch: on or off, turned by a tap or by a drag across its middle.
//
// Always 51 × 31 points. Sends ValueChanged after the user has turned it.
#pragma once

#include "platform/toolkit/views/UIControl.h"

namespace toolkit {

class UISwitch : public UIControl {
    RUNTIME_CLASS()
public:
    /// Only the frame's origin counts.
    explicit UISwitch(Rect frame = {});

    static constexpr Size switchSize{51, 31};

    bool isOn() const { return on_; }
    void setOn(bool on);
    void setOnAnimated(bool on);
    Color onTintColor() const { return onTintColor_; }
    void setOnTintColor(Color color);

    Size sizeThatFits(Size) const override { return switchSize; }
    void setFrame(Rect frame) override;
    void describeProperties(nlohmann::json& properties) const override;
    void touchesBegan(const Touch& touch) override;
    void touchesMoved(const Touch& touch) override;
    void touchesEnded(const Touch& touch) override;
    void touchesCancelled(const Touch& touch) override;

protected:
    bool gripsFinger() const override { return isEnabled(); }
    void highlightChanged() override;
    void enabledChanged() override;

private:
    void show();
    void showAnimated();

    bool on_ = false;
    bool dragged_ = false; // the finger on the switch moves the thumb along
    double touchStart_ = 0;
    bool valueAtTouch_ = false;
    Color onTintColor_ = Color::rgba(76 / 255.0, 217 / 255.0, 100 / 255.0);
    std::shared_ptr<UIView> track_;
    std::shared_ptr<UIView> thumb_;
};

} // namespace toolkit
