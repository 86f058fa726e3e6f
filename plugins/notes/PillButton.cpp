#include "PillButton.h"

#include "Look.h"

namespace notesplugin {

std::unique_ptr<vela::plugin::Button> makePillButton(vela::plugin::Container& container,
                                                     std::string_view title, vela::plugin::Color color,
                                                     std::function<void()> onTap) {
    auto button = container.addButton(title);
    button->setFont({.size = 16, .weight = vela::plugin::Weight::Semibold});
    button->setColor(color);
    button->setBackground(look::card);
    button->setCornerRadius(look::cornerRadius);
    button->onTap(std::move(onTap));
    return button;
}

} // namespace notesplugin
