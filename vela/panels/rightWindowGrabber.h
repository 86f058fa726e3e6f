// The strip along the right screen edge; pulls the music panel in.
#pragma once

#include "vela/panels/WindowGrabber.h"
#include "vela/panels/rightController.h"

namespace vela {

class rightWindowGrabber final : public WindowGrabber {
    RUNTIME_CLASS()
public:
    explicit rightWindowGrabber(toolkit::Rect frame = {});

    const std::shared_ptr<rightController>& controller() const { return controller_; }
    void setController(std::shared_ptr<rightController> panel);

protected:
    toolkit::UIWindow& panel() const override { return *controller_; }
    homescreen::SBChevronView& panelChevron() const override { return *controller_->grabberView(); }
    WindowGrabber* otherGrabber() const override;
    std::int32_t side() const override { return 1; }
    int openingDirection() const override { return -1; }
    double openPosition(Travel travel) const override { return travel.span - travel.width; }
    double closedPosition(Travel travel) const override { return travel.span; }
    double heldAtOpen(double x, Travel travel) const override;
    bool opensFrom(double x, Travel travel) const override;
    double dimmingAlpha(double x, Travel travel) const override;
    toolkit::Rect dimmingFrame(double x, double height, Travel travel, Motion motion) const override;
    void placeDimmingChevron(double x, Motion motion) const override;
    void chooseDimmingChevron(bool alternative) const override;
    void applyBlur(toolkit::BlurEffectStyle style) const override;

private:
    std::shared_ptr<rightController> controller_;
};

} // namespace vela
