// Progress as an arc that closes to a ring, with a percentage or an icon in the middle.
//
// A thin ring lies beneath a thicker arc. While nobody knows the progress, four fifths of the thin ring turn
// once a second. The rings' widths follow the view's until they are set.
#pragma once

#include "platform/foundation/NumberFormatter.h"
#include "platform/toolkit/animation/CADisplayLink.h"
#include "platform/toolkit/layers/ShapeLayer.h"
#include "platform/toolkit/views/UILabel.h"
#include "vela/nowplaying/M13ProgressView.h"

namespace vela {

class M13ProgressViewRing : public M13ProgressView {
    RUNTIME_CLASS()
public:
    explicit M13ProgressViewRing(toolkit::Rect frame = {});

    /// Points.
    double backgroundRingWidth() const { return backgroundRingWidth_; }
    void setBackgroundRingWidth(double width);
    double progressRingWidth() const { return progressRingWidth_; }
    void setProgressRingWidth(double width);
    /// Whether the label is a subview.
    bool showPercentage() const { return showPercentage_; }
    void setShowPercentage(bool show);
    foundation::NumberFormatter& percentageFormatter() { return percentageFormatter_; }
    const std::shared_ptr<toolkit::UILabel>& percentageLabel() const { return percentageLabel_; }
    const std::shared_ptr<toolkit::ShapeLayer>& backgroundLayer() const { return backgroundLayer_; }
    const std::shared_ptr<toolkit::ShapeLayer>& progressLayer() const { return progressLayer_; }
    const std::shared_ptr<toolkit::ShapeLayer>& iconLayer() const { return iconLayer_; }
    std::int32_t currentAction() const { return currentAction_; }

    void setPrimaryColor(toolkit::Color color) override;
    void setSecondaryColor(toolkit::Color color) override;
    /// Nothing happens when the progress is the current one already.
    void setProgress(double progress, bool animated) override;
    /// Actions always fade in and out, animated or not.
    void performAction(std::int32_t action, bool animated) override;
    void setIndeterminate(bool indeterminate) override;

    /// Fades to fully shown, or to hidden, and stays so.
    toolkit::BasicAnimation showAnimation() const;
    toolkit::BasicAnimation hideAnimation() const;

    static constexpr double noIntrinsicMetric = -1;
    /// A ring is as large as it is made.
    toolkit::Size intrinsicContentSize() const { return {noIntrinsicMetric, noIntrinsicMetric}; }
    void setFrame(toolkit::Rect frame) override;
    void layoutSubviews() override;

    /// Brings the layers up to date: background, icon, progress.
    void drawRect(toolkit::Rect rect);
    void drawBackground();
    void drawProgress();
    void drawIcon();
    void drawSuccess();
    void drawFailure();

private:
    void setup();
    void redraw() { drawRect(bounds()); }
    void setAutomaticWidths(double width);
    void placeLayers();
    toolkit::Path arc(double ringWidth, double end) const;
    void animateProgress(toolkit::CADisplayLink& link);
    void stepProgress(double timestamp);
    void removeDisplayLink() { displayLink_ = nullptr; }
    void showIcon(std::int32_t action);
    void swapIcon(std::int32_t action);
    void hideIcon();

    double backgroundRingWidth_ = 1;
    double progressRingWidth_ = 3;
    bool backgroundRingWidthOverridden_ = false;
    bool progressRingWidthOverridden_ = false;
    bool showPercentage_ = true;
    foundation::NumberFormatter percentageFormatter_;
    std::shared_ptr<toolkit::UILabel> percentageLabel_;
    double animationFromValue_ = 0;
    double animationToValue_ = 0;
    double animationStartTime_ = 0; // run loop time, seconds
    std::shared_ptr<toolkit::CADisplayLink> displayLink_;
    std::shared_ptr<toolkit::ShapeLayer> progressLayer_;
    std::shared_ptr<toolkit::ShapeLayer> backgroundLayer_;
    std::shared_ptr<toolkit::ShapeLayer> iconLayer_;
    std::int32_t currentAction_ = M13ProgressViewActionNone;
};

} // namespace vela
