// A card with one lying bar, for what changes slowly; without a bar it is a line of text.
#pragma once

#include "Card.h"

#include <optional>

namespace systemplugin {

class MeterCard : public Card {
public:
    using Card::Card;

    /// From 0 to 1; nothing for no bar.
    void setPart(std::optional<double> part, vela::plugin::Color color);

private:
    void drawContent(vela::plugin::Canvas& canvas, vela::plugin::Rect content) const override;

    std::optional<double> part_;
    vela::plugin::Color color_;
};

} // namespace systemplugin
