// The strip along the left screen edge; pulls the board's panel in, and tells the plug-ins of it.
#pragma once

#include "vela/panels/WindowGrabber.h"
#include "vela/panels/leftController.h"

namespace vela {

class leftWindowGrabber final : public WindowGrabber {
    RUNTIME_CLASS()
public:
    /// Posted on the default centre when an animation starts. Its object is a dictionary whose "name" is
    /// "invoked" or "dismissed"; it comes whether or not the panel was in that state already.
    static constexpr const char* notificationName = "org.lanternhub.vela3_notification";

    explicit leftWindowGrabber(toolkit::Rect frame = {});

    const std::shared_ptr<leftController>& controller() const { return controller_; }
    void setController(std::shared_ptr<leftController> panel);

protected:
    toolkit::UIWindow& panel() const override { return *controller_; }
    homescreen::SBChevronView& panelChevron() const override { return *controller_->grabberView(); }
    WindowGrabber* otherGrabber() const override;
    std::int32_t side() const override { return 0; }
    int openingDirection() const override { return +1; }
    double openPosition(Travel) const override { return 0; }
    double closedPosition(Travel travel) const override { return -travel.width; }
    double heldAtOpen(double x, Travel travel) const override;
    bool opensFrom(double x, Travel travel) const override;
    double dimmingAlpha(double x, Travel travel) const override;
    toolkit::Rect dimmingFrame(double x, double height, Travel travel, Motion motion) const override;
    void placeDimmingChevron(double x, Motion motion) const override;
    void chooseDimmingChevron(bool alternative) const override;
    void applyBlur(toolkit::BlurEffectStyle style) const override;
    void panBegan() override;
    void announce(bool invoked) override;

private:
    std::shared_ptr<leftController> controller_;
};

} // namespace vela
