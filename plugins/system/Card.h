// A dark card with a title at the left and the present value at the right; what lies beneath them is drawn by
// the kind of card.
#pragma once

#include "VelaPlugin.h"

#include <memory>
#include <string>

namespace systemplugin {

class Card {
public:
    Card(vela::plugin::Container& container, std::string title);
    virtual ~Card() = default;
    Card(const Card&) = delete;
    Card& operator=(const Card&) = delete;

    void setFrame(vela::plugin::Rect frame) { area_->setFrame(frame); }
    void setValue(std::string value);

protected:
    void setNeedsDisplay() { area_->setNeedsDisplay(); }
    /// Within `content`, the card's lower part.
    virtual void drawContent(vela::plugin::Canvas&, vela::plugin::Rect /*content*/) const {}

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;

    std::string title_;
    std::string value_ = "–";
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace systemplugin
