// The content of the left panel: a vertically scrolling board of tiles, one for each installed plug-in.
//
// Without plug-ins it says so.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UILabel.h"

#include <cstdint>

namespace vela {

class velaBoard : public toolkit::UIScrollView, public toolkit::ScrollViewDelegate {
    RUNTIME_CLASS()
public:
    explicit velaBoard(toolkit::Rect frame = {});
    ~velaBoard() override;

    /// Looks for plug-ins, at most twice while none have been found. Called at each pull of the panel.
    void loadApps();
    void setFrame(toolkit::Rect frame) override;

    const std::shared_ptr<toolkit::UILabel>& noApps() const { return noApps_; }
    /// Points above the first tile and between tiles.
    double space() const { return 50; }
    std::int32_t retried() const { return retried_; }

    void describeProperties(nlohmann::json& properties) const override;

private:
    std::int32_t retried_ = 0;
    std::shared_ptr<toolkit::UILabel> noApps_;
};

} // namespace vela
