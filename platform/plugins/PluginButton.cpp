#include "platform/plugins/PluginButton.h"

#include "platform/plugins/PluginImage.h"

namespace plugins {

PluginButton::PluginButton(toolkit::UIView& parent, CallerPointer caller, std::string_view title)
    : PluginChild(parent, std::move(caller), std::make_shared<toolkit::UIButton>()) {
    setColor(sdk::colors::primary);
    setTitle(title);
    view().addHandler(toolkit::ControlEvent::TouchUpInside,
                      [tap = std::weak_ptr(tap_), caller = this->caller()] {
                          if (const auto handler = tap.lock())
                              handler->call(caller, "a button's handler");
                      });
}

void PluginButton::setTitle(std::string_view title) {
    view().setTitle(std::string(title));
}

void PluginButton::setFont(sdk::Font font) {
    view().titleLabel()->setFont(toToolkit(font));
    view().setNeedsLayout();
}

void PluginButton::setColor(sdk::Color color) {
    view().titleLabel()->setTextColor(toToolkit(color));
}

void PluginButton::setImage(const sdk::ImagePointer& image) {
    const auto* known = dynamic_cast<const PluginImage*>(image.get());
    view().setImage(known ? known->image() : nullptr);
}

void PluginButton::setEnabled(bool enabled) {
    view().setEnabled(enabled);
}

void PluginButton::onTap(std::function<void()> handler) {
    tap_->set(std::move(handler));
}

} // namespace plugins
