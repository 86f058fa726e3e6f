// The content of the left panel: a vertically scrolling board with a tile for every visible plug-in.
//
// Closed tiles are miniatures of the board, one above the other; when one opens, all grow to the board's size
// and the opened one fills the visible area. The tiles drive that; the board computes the frames that both
// states rest on. Owns its tiles. Main thread only.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/views/UILabel.h"

#include <cstdint>
#include <vector>

namespace vela {

class velaApplicationView;

class velaBoard : public toolkit::UIScrollView, public toolkit::ScrollViewDelegate {
    RUNTIME_CLASS()
public:
    explicit velaBoard(toolkit::Rect frame = {});
    ~velaBoard() override;

    /// Makes the tiles anew from the installed plug-ins. Once tiles exist, or after two fruitless calls, a
    /// call does nothing.
    void loadApps();
    /// Also lays every tile out.
    void setFrame(toolkit::Rect frame) override;

    /// Closed tiles have this part of the board's width and height.
    double mainFactor() const { return 0.45; }
    /// The tiles' part of the board's size as they stand: 1 when the first of them is open.
    double scaleFactor() const;
    /// Points above the first closed tile and between closed tiles.
    double space() const { return 50; }

    const std::vector<std::shared_ptr<velaApplicationView>>& apps() const { return apps_; }
    /// Shown exactly while there are no tiles.
    const std::shared_ptr<toolkit::UILabel>& noApps() const { return noApps_; }
    std::int32_t indexOfOpenedApp() const { return indexOfOpenedApp_; }
    void setIndexOfOpenedApp(std::int32_t index) { indexOfOpenedApp_ = index; }
    /// Counts calls of loadApps and the tiles that they made, together.
    std::int32_t retried() const { return retried_; }

    void scrollViewDidEndScrollingAnimation(toolkit::UIScrollView& view) override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    void addApp(const std::string& identifier, const std::string& name, const std::string& icon);
    void layOutApps();

    std::int32_t indexOfOpenedApp_ = 0;
    std::int32_t retried_ = 0;
    std::shared_ptr<toolkit::UILabel> noApps_;
    std::vector<std::shared_ptr<velaApplicationView>> apps_;
};

} // namespace vela
