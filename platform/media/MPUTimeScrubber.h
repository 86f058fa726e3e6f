// The line on which a song's time advances, and the mark that a finger takes hold of to go elsewhere.
//
// A finger anywhere on it grips the mark and moves it along from where it is. ValueChanged is sent on the
// way, TouchUpInside when the finger is lifted, wherever that is. While it is held, setValue() is not shown.
#pragma once

#include "platform/toolkit/views/UIControl.h"

namespace media {

class MPUTimeScrubber : public toolkit::UIControl {
    RUNTIME_CLASS()
public:
    MPUTimeScrubber();

    /// From 0 to 1; the finger's while it is held.
    double value() const { return value_; }
    void setValue(double value);
    void setColor(toolkit::Color color);

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;
    void touchesBegan(const toolkit::Touch& touch) override;
    void touchesMoved(const toolkit::Touch& touch) override;

protected:
    bool gripsFinger() const override { return isEnabled(); }
    double touchReach() const override;
    void highlightChanged() override;
    void enabledChanged() override;

private:
    void show();
    double travel() const;

    double value_ = 0;
    double gripX_ = 0;     // where the finger went down, and
    double gripValue_ = 0; // the value then
    std::shared_ptr<toolkit::UIView> track_;
    std::shared_ptr<toolkit::UIView> past_;
    std::shared_ptr<toolkit::UIView> mark_;
};

} // namespace media
