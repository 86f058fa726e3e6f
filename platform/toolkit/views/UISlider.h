// A slider: a value between two limits, moved by dragging its thumb.
//
// A finger that goes down anywhere on the slider grips the thumb and moves it along, from wherever it is.
// Sends TouchDown when it is gripped, ValueChanged at every change by the user (or only at the end, see
// setContinuous), and TouchUpInside when it is let go, wherever the finger is by then.
#pragma once

#include "platform/toolkit/views/UIControl.h"

namespace toolkit {

class UISlider : public UIControl {
    RUNTIME_CLASS()
public:
    explicit UISlider(Rect frame = {});

    float minimumValue() const { return minimum_; }
    float maximumValue() const { return maximum_; }
    /// A value outside the limits moves to the nearer one; a maximum below the minimum becomes the minimum.
    void setMinimumValue(float minimum);
    void setMaximumValue(float maximum);
    float value() const { return value_; }
    void setValue(float value);
    void setValueAnimated(float value);
    bool isContinuous() const { return continuous_; }
    void setContinuous(bool continuous) { continuous_ = continuous; }
    void setMinimumTrackTintColor(Color color) { filledTrack_->setBackgroundColor(color); }
    void setMaximumTrackTintColor(Color color) { track_->setBackgroundColor(color); }
    void setThumbTintColor(Color color) { thumb_->setBackgroundColor(color); }

    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;
    void touchesBegan(const Touch& touch) override;
    void touchesMoved(const Touch& touch) override;
    void touchesEnded(const Touch& touch) override;
    void touchesCancelled(const Touch& touch) override;

protected:
    bool gripsFinger() const override { return isEnabled(); }
    double touchReach() const override;
    void enabledChanged() override;

private:
    void show();
    void sendFinalValue(const Touch& touch);
    float clamped(float value) const;
    /// The way of the thumb's middle from the minimum to the maximum, in points.
    double travel() const;
    double fraction() const;

    float minimum_ = 0;
    float maximum_ = 1;
    float value_ = 0;
    bool continuous_ = true;
    double gripX_ = 0;    // where the finger went down, and
    float gripValue_ = 0; // the value then
    std::shared_ptr<UIView> track_;
    std::shared_ptr<UIView> filledTrack_;
    std::shared_ptr<UIView> thumb_;
};

} // namespace toolkit
