#include "CardStack.h"

#include <algorithm>

namespace systemplugin {

std::vector<double> cardHeights(const std::vector<CardHeight>& cards, double panelHeight, double gap) {
    double taken = cards.empty() ? 0 : gap * static_cast<double>(cards.size() - 1);
    int growing = 0;
    for (const CardHeight& card : cards) {
        taken += card.least;
        growing += card.grows ? 1 : 0;
    }
    const double share = growing > 0 ? std::max(panelHeight - taken, 0.0) / growing : 0;
    std::vector<double> heights;
    for (const CardHeight& card : cards)
        heights.push_back(card.least + (card.grows ? share : 0));
    return heights;
}

} // namespace systemplugin
