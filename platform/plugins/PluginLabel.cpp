#include "platform/plugins/PluginLabel.h"

namespace plugins {

PluginLabel::PluginLabel(toolkit::UIView& parent, CallerPointer caller, std::string_view text)
    : PluginChild(parent, std::move(caller), std::make_shared<toolkit::UILabel>()) {
    view().setUserInteractionEnabled(false);
    view().setTextColor(toToolkit(sdk::colors::primary));
    setText(text);
}

void PluginLabel::setText(std::string_view text) {
    view().setText(std::string(text));
}

void PluginLabel::setFont(sdk::Font font) {
    view().setFont(toToolkit(font));
}

void PluginLabel::setColor(sdk::Color color) {
    view().setTextColor(toToolkit(color));
}

void PluginLabel::setAlignment(sdk::Alignment alignment) {
    view().setTextAlignment(toToolkit(alignment));
}

void PluginLabel::setLines(int lines) {
    view().setNumberOfLines(std::max(lines, 0));
}

} // namespace plugins
