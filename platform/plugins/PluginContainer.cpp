#include "platform/plugins/PluginContainer.h"

#include "platform/plugins/PluginButton.h"
#include "platform/plugins/PluginDrawnArea.h"
#include "platform/plugins/PluginLabel.h"
#include "platform/plugins/PluginScrollArea.h"
#include "platform/plugins/PluginTextField.h"
#include "platform/plugins/PluginTextView.h"

namespace plugins {

std::unique_ptr<sdk::Label> makeLabel(toolkit::UIView& parent, const CallerPointer& caller,
                                      std::string_view text) {
    return std::make_unique<PluginLabel>(parent, caller, text);
}

std::unique_ptr<sdk::Button> makeButton(toolkit::UIView& parent, const CallerPointer& caller,
                                        std::string_view title) {
    return std::make_unique<PluginButton>(parent, caller, title);
}

std::unique_ptr<sdk::DrawnArea> makeDrawnArea(toolkit::UIView& parent, const CallerPointer& caller) {
    return std::make_unique<PluginDrawnArea>(parent, caller);
}

std::unique_ptr<sdk::ScrollArea> makeScrollArea(toolkit::UIView& parent, const CallerPointer& caller) {
    return std::make_unique<PluginScrollArea>(parent, caller);
}

std::unique_ptr<sdk::TextView> makeTextView(toolkit::UIView& parent, const CallerPointer& caller) {
    return std::make_unique<PluginTextView>(parent, caller);
}

std::unique_ptr<sdk::TextField> makeTextField(toolkit::UIView& parent, const CallerPointer& caller) {
    return std::make_unique<PluginTextField>(parent, caller);
}

} // namespace plugins
