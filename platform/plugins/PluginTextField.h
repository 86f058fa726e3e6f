// A line of text among a plug-in's child views.
#pragma once

#include "platform/plugins/PluginTextInput.h"
#include "platform/toolkit/views/UITextField.h"

namespace plugins {

class PluginTextField final : public PluginTextInput<sdk::TextField, toolkit::UITextField> {
public:
    PluginTextField(toolkit::UIView& parent, CallerPointer caller)
        : PluginTextInput(parent, std::move(caller)) {
        view().addHandler(toolkit::ControlEvent::EditingChanged, changeReport());
    }

    void setPlaceholder(std::string_view placeholder) override {
        view().setPlaceholder(std::string(placeholder));
    }
};

} // namespace plugins
