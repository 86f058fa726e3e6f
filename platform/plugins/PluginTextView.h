// Lines of text among a plug-in's child views.
#pragma once

#include "platform/plugins/PluginTextInput.h"
#include "platform/toolkit/views/UITextView.h"

namespace plugins {

class PluginTextView final : public PluginTextInput<sdk::TextView, toolkit::UITextView> {
public:
    PluginTextView(toolkit::UIView& parent, CallerPointer caller)
        : PluginTextInput(parent, std::move(caller)) {
        view().setTextChangedHandler(changeReport());
    }

    void setEditable(bool editable) override { view().setEditable(editable); }
};

} // namespace plugins
