// Darkens the screen beside an open panel, carries the chevrons of the alternative style, and catches the
// touches that close or drag the panel.
//
// The grabbers place and fade it; it never lays its chevrons out itself.
#pragma once

#include "platform/homescreen/SBChevronView.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/windows/UIWindow.h"
#include "vela/startup/ViewController.h"

#include <cstdint>

namespace vela {

class leftWindowGrabber;
class rightWindowGrabber;

class darkingWindow : public toolkit::UIWindow {
    RUNTIME_CLASS()
public:
    explicit darkingWindow(toolkit::Rect frame = {});

    /// Stores a grabber, lies down one level above it and makes the recognisers that serve its panel. The
    /// grabber and this window live as long as the process; the grabber is kept weakly all the same.
    void setRightGrabber(const std::shared_ptr<rightWindowGrabber>& grabber);
    void setLeftGrabber(const std::shared_ptr<leftWindowGrabber>& grabber);
    std::shared_ptr<rightWindowGrabber> rightGrabber() const { return rightGrabber_.lock(); }
    std::shared_ptr<leftWindowGrabber> leftGrabber() const { return leftGrabber_.lock(); }

    /// Whose panel touches here go to: 0 the left one, everything else the right one.
    std::int32_t touchController() const { return touchController_; }
    void setTouchController(std::int32_t side);

    const std::shared_ptr<homescreen::SBChevronView>& leftChevron() const { return leftChevron_; }
    const std::shared_ptr<homescreen::SBChevronView>& rightChevron() const { return rightChevron_; }
    const std::shared_ptr<ViewController>& controller() const { return controller_; }
    const std::shared_ptr<toolkit::UIPanGestureRecognizer>& rightPan() const { return rightPan_; }
    const std::shared_ptr<toolkit::UIPanGestureRecognizer>& leftPan() const { return leftPan_; }
    const std::shared_ptr<toolkit::UITapGestureRecognizer>& rightTap() const { return rightTap_; }
    const std::shared_ptr<toolkit::UITapGestureRecognizer>& leftTap() const { return leftTap_; }

    bool _shouldCreateContextAsSecure() const override { return true; }
    void describeProperties(nlohmann::json& properties) const override;

private:
    template <class Grabber>
    void serve(Grabber& grabber, std::shared_ptr<toolkit::UIPanGestureRecognizer>& pan,
               std::shared_ptr<toolkit::UITapGestureRecognizer>& tap);

    std::shared_ptr<toolkit::UIPanGestureRecognizer> rightPan_;
    std::shared_ptr<toolkit::UIPanGestureRecognizer> leftPan_;
    std::shared_ptr<toolkit::UITapGestureRecognizer> rightTap_;
    std::shared_ptr<toolkit::UITapGestureRecognizer> leftTap_;
    std::int32_t touchController_ = 0;
    std::weak_ptr<rightWindowGrabber> rightGrabber_;
    std::weak_ptr<leftWindowGrabber> leftGrabber_;
    std::shared_ptr<ViewController> controller_;
    std::shared_ptr<homescreen::SBChevronView> leftChevron_;
    std::shared_ptr<homescreen::SBChevronView> rightChevron_;
};

} // namespace vela
