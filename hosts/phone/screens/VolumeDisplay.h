// The volume display: a frosted square with a loudspeaker and a row of sixteen steps.
#pragma once

#include "platform/toolkit/views/UIVisualEffectView.h"

namespace phone {

class VolumeDisplay : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    VolumeDisplay();

    /// From 0 to `steps`.
    void setLevel(int level);

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

    static constexpr int steps = 16;
    static constexpr double side = 156; // points

private:
    class Picture;
    std::shared_ptr<toolkit::UIVisualEffectView> glass_;
    std::shared_ptr<Picture> picture_;
};

} // namespace phone
