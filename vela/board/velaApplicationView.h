// A tile: one plug-in on the board. Closed, a rounded miniature under a grey veil with icon and name; tapped,
// it opens in place, together with all other tiles, into the plug-in's own view.
//
// The board owns the tiles. An animation that is interrupted leaves the flags as they were. Main thread only.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <cstdint>
#include <string>

namespace toolkit {
class UILabel;
}

namespace vela {

class velaAppHostingView;
class velaBoard;
class velaIconView;

class velaApplicationView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    static constexpr double animationDuration = 0.8; // seconds
    static constexpr double closedCornerRadius = 10; // points

    explicit velaApplicationView(toolkit::Rect frame = {});

    /// This tile's index on the board when it was last tapped.
    std::int32_t clickedIndex() const { return clickedIndex_; }
    void setClickedIndex(std::int32_t index) { clickedIndex_ = index; }
    /// While an animation runs on the board the tile does not lay itself out.
    bool isAnimating() const { return isAnimating_; }
    void setIsAnimating(bool animating) { isAnimating_ = animating; }
    bool isOpen() const { return isOpen_; }
    void setIsOpen(bool open) { isOpen_ = open; }
    /// The board is scrolling this tapped tile into sight.
    bool waiting() const { return waiting_; }
    void setWaiting(bool waiting) { waiting_ = waiting; }
    const std::shared_ptr<toolkit::UIView>& grayView() const { return grayView_; }
    const std::shared_ptr<velaIconView>& icon() const { return icon_; }
    /// Null until the first tap.
    const std::shared_ptr<velaAppHostingView>& hostingView() const { return hostingView_; }
    const std::string& identifier() const { return identifier_; }
    void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }
    velaBoard* board() const { return board_.get(); }
    void setBoard(velaBoard* board);
    /// The closed and the open frame, in the board's coordinates.
    toolkit::Rect originalFrame() const { return originalFrame_; }
    void setOriginalFrame(toolkit::Rect frame) { originalFrame_ = frame; }
    toolkit::Rect trasformedFrame() const { return trasformedFrame_; }
    void setTrasformedFrame(toolkit::Rect frame) { trasformedFrame_ = frame; }

    /// Says beneath the name that the plug-in has been turned off after a crash.
    void showTurnedOff();

    /// A tap: opens the board on this tile, after scrolling its top into sight where that is needed.
    void appClicked();
    void finishScrollingAnimation();
    /// Animates this tile to where it lies while the tile of index `openIndex` is open.
    void animationToOpenToAppIndex(std::int32_t openIndex);
    /// Animates this tile back to its open, or closed, frame.
    void openOpenedApp();
    void closeOpenedApp();
    /// Shows the tile `progress` of the way from open (0) to closed (1).
    void followClosing(float progress);

    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;

private:
    std::int32_t indexOnBoard() const;
    void makeHostingView();
    void markAllAnimating();
    void openAllOn(std::int32_t openIndex);
    void animateCornerRadius(double from, double to);
    void placeIcon();
    void placeTurnedOff();
    void centreHostingView();
    /// An animation has brought the tile where it stays.
    void comeToRest(bool open);
    void opened(std::int32_t openIndex);

    std::int32_t clickedIndex_ = 0;
    bool isAnimating_ = false;
    bool isOpen_ = false;
    bool waiting_ = false;
    std::shared_ptr<toolkit::UIView> grayView_;
    std::shared_ptr<velaIconView> icon_;
    std::shared_ptr<toolkit::UILabel> turnedOff_; // null unless it is
    std::shared_ptr<velaAppHostingView> hostingView_;
    std::string identifier_;
    runtime::WeakPtr<velaBoard> board_;
    toolkit::Rect originalFrame_;
    toolkit::Rect trasformedFrame_;
};

} // namespace vela
