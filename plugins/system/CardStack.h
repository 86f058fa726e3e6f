// The heights of cards that lie above each other: what a tall panel has left over goes to the graphs.
#pragma once

#include <vector>

namespace systemplugin {

struct CardHeight {
    double least = 0;
    bool grows = false;
};

/// The heights for a panel; with the gaps between them they fill it, unless it is too low.
std::vector<double> cardHeights(const std::vector<CardHeight>& cards, double panelHeight, double gap);

} // namespace systemplugin
