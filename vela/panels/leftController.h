// The left panel's window: the board of plug-ins on frosted glass.
#pragma once

#include "platform/toolkit/views/UIVisualEffectView.h"
#include "platform/toolkit/windows/UIWindow.h"
#include "vela/board/velaBoard.h"
#include "vela/panels/GrabStrip.h"
#include "vela/startup/ViewController.h"

namespace vela {

class leftController : public toolkit::UIWindow {
    RUNTIME_CLASS()
public:
    explicit leftController(toolkit::Rect frame = {});

    const std::shared_ptr<toolkit::UIVisualEffectView>& blurView() const { return blurView_; }
    const std::shared_ptr<toolkit::UIView>& grabberContainer() const { return strip_.container; }
    const std::shared_ptr<homescreen::SBChevronView>& grabberView() const { return strip_.chevron; }
    const std::shared_ptr<velaBoard>& board() const { return board_; }
    const std::shared_ptr<ViewController>& controller() const { return controller_; }

    bool _shouldCreateContextAsSecure() const override { return true; }
    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UIVisualEffectView> blurView_;
    GrabStrip strip_;
    std::shared_ptr<velaBoard> board_;
    std::shared_ptr<ViewController> controller_;
};

} // namespace vela
