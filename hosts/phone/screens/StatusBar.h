// The strip along the screen's top: signal, network, time and battery, light or dark.
#pragma once

#include "hosts/phone/WallClock.h"
#include "platform/toolkit/views/UIView.h"

namespace phone {

enum class StatusBarStyle { LightContent, DarkContent };

class StatusBar : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit StatusBar(WallClock& clock);

    void setStyle(StatusBarStyle style);
    /// The lock screen shows the time large, so that the strip leaves it out.
    void setTimeShown(bool shown);

    bool drawsContent() const override { return true; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void describeProperties(nlohmann::json& properties) const override;

    static constexpr double height = 20; // points

private:
    double drawText(toolkit::Canvas& canvas, const std::string& text, double x, bool bold,
                    double anchor) const;
    void drawSignal(toolkit::Canvas& canvas) const;
    void drawBattery(toolkit::Canvas& canvas, double right) const;
    toolkit::Color ink() const;

    WallClock& clock_;
    StatusBarStyle style_ = StatusBarStyle::LightContent;
    bool timeShown_ = true;
    std::string shownTime_;
    foundation::Handle minute_;
};

} // namespace phone
