// A card with a graph of one or two values over the last minute, and a row of small bars where there are
// cores to be shown.
#pragma once

#include "Card.h"
#include "History.h"

#include <vector>

namespace systemplugin {

class GraphCard : public Card {
public:
    struct Curve {
        const History* history = nullptr; // lives longer
        vela::plugin::Color color;
    };

    GraphCard(vela::plugin::Container& container, std::string title, std::vector<Curve> curves);

    /// Draws the minute that ends at `now`; `top` is the value at the upper edge.
    void show(double now, double top);
    /// Values from 0 to 1, a bar each.
    void setBars(std::vector<double> bars);

private:
    void drawContent(vela::plugin::Canvas& canvas, vela::plugin::Rect content) const override;
    void drawBars(vela::plugin::Canvas& canvas, vela::plugin::Rect area) const;

    std::vector<Curve> curves_;
    std::vector<double> bars_;
    double now_ = 0;
    double top_ = 1;
};

} // namespace systemplugin
