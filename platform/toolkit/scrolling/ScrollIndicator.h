// The thin bar at a scroll view's edge that shows, while the content moves, which part of it is seen.
//
// A layer of its own over the scroll view's subviews, in the content's coordinates. Owned by its scroll view.
// Main thread only.
#pragma once

#include "platform/toolkit/layers/Layer.h"

#include <memory>

namespace toolkit {

class ScrollIndicator {
public:
    enum class Direction { Horizontal, Vertical };

    ScrollIndicator(Layer& scrolled, Direction direction);
    ~ScrollIndicator();

    static constexpr double thickness = 2.5;     // points
    static constexpr double edgeDistance = 3;    // points
    static constexpr double shortestLength = 36; // points; less only beyond the edges
    static constexpr double fadeDelay = 0.4;     // seconds after the motion's end
    static constexpr double fadeDuration = 0.25; // seconds

    /// Places the bar for content that reaches from `begin` to `end` along the direction, insets included.
    void update(double begin, double end);
    void show();
    /// Fades the bar out after a while.
    void hide();
    bool isShown() const { return shown_; }
    const Layer& layer() const { return *layer_; }

private:
    Layer& scrolled_; // owns this through its view
    Direction direction_;
    std::shared_ptr<Layer> layer_;
    bool shown_ = false;
};

} // namespace toolkit
