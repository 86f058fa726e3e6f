// A button of now-playing controls, drawn as the sign that every player bears.
#pragma once

#include "platform/toolkit/views/UIControl.h"

namespace media {

enum class TransportSign { Previous, Play, Pause, Next };

class MPUTransportButton : public toolkit::UIControl {
    RUNTIME_CLASS()
public:
    /// `signHeight` in points; the button itself may be larger.
    MPUTransportButton(TransportSign sign, double signHeight);

    TransportSign sign() const { return sign_; }
    void setSign(TransportSign sign);
    void setColor(toolkit::Color color);

    bool drawsContent() const override { return true; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void describeProperties(nlohmann::json& properties) const override;

protected:
    void highlightChanged() override;

private:
    TransportSign sign_;
    double signHeight_;
    toolkit::Color color_ = toolkit::Color::white(1);
};

} // namespace media
