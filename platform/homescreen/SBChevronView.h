// The grab mark of a panel: a short bar that bends into an arrow.
//
// Unturned it lies flat. State 0 is the straight bar of a panel in motion, state 1 the arrow of one at rest.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace homescreen {

class SBChevronView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// initWithColor:
    explicit SBChevronView(toolkit::Color color);

    std::int64_t state() const { return state_; }
    void setState(std::int64_t state, bool animated);

    toolkit::Size sizeThatFits(toolkit::Size size) const override;
    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

    /// Fitted size in points.
    static constexpr double fittedWidth = 36;
    static constexpr double fittedHeight = 14;

private:
    void placeHalves();

    std::shared_ptr<toolkit::UIView> leftHalf_;
    std::shared_ptr<toolkit::UIView> rightHalf_;
    std::int64_t state_ = 0;
};

} // namespace homescreen
