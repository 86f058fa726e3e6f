// The strip along a panel's inner edge by which an open panel is dragged, with the chevron in its middle.
#pragma once

#include "platform/homescreen/SBChevronView.h"
#include "platform/toolkit/views/UIView.h"

#include <memory>

namespace vela {

struct GrabStrip {
    std::shared_ptr<toolkit::UIView> container;
    std::shared_ptr<homescreen::SBChevronView> chevron;

    static constexpr double width = 20; // points

    /// Made with the chevron turned by `radians`, pointing as on a panel at rest.
    static GrabStrip make(double radians);
    /// Lays the strip out at `x` in a panel `height` points high; without room when the chevrons lie on the
    /// dimmed area instead, whose own chevron then shows.
    void layOut(bool alternativeChevrons, double x, double height, toolkit::UIView* dimmingChevron) const;
};

} // namespace vela
