// The frosted shelf at the bottom of the home screen, with the icons that are always at hand.
#pragma once

#include "hosts/phone/screens/HomeIcon.h"
#include "platform/toolkit/views/UIVisualEffectView.h"

namespace phone {

class Dock : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    Dock();

    void addIcon(std::shared_ptr<HomeIcon> icon);
    const std::vector<std::shared_ptr<HomeIcon>>& icons() const { return icons_; }

    void layoutSubviews() override;

    /// Height in points for icons of that size.
    static double heightFor(toolkit::Size iconSize) { return iconSize.height + 36; }

private:
    std::shared_ptr<toolkit::UIVisualEffectView> glass_;
    std::vector<std::shared_ptr<HomeIcon>> icons_;
};

} // namespace phone
