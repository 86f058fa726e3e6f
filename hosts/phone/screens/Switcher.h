// The row of opened applications that a double press of the Home button shows. A tap on a card chooses it, a
// tap beside the cards leaves everything as it was.
#pragma once

#include "hosts/phone/screens/SwitcherCard.h"
#include "platform/toolkit/scrolling/UIScrollView.h"

namespace phone {

class Switcher : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// `chosen` gets the card that was tapped, or null for a tap beside them.
    Switcher(std::shared_ptr<const toolkit::Image> background,
             std::function<void(const SwitcherCard*)> chosen);

    /// Replaces the cards; the first lies in front of the hand, the others follow to its right.
    void setCards(std::vector<std::shared_ptr<SwitcherCard>> cards);

    void layoutSubviews() override;

private:
    void handleTap(toolkit::Point point);

    std::function<void(const SwitcherCard*)> chosen_;
    std::shared_ptr<toolkit::UIImageView> background_;
    std::shared_ptr<toolkit::UIView> shade_;
    std::shared_ptr<toolkit::UIScrollView> row_;
    std::vector<std::shared_ptr<SwitcherCard>> cards_;
};

} // namespace phone
