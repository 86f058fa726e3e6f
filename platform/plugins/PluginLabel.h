// A label among a plug-in's child views.
#pragma once

#include "platform/plugins/PluginChild.h"
#include "platform/toolkit/views/UILabel.h"

namespace plugins {

class PluginLabel final : public PluginChild<sdk::Label, toolkit::UILabel> {
public:
    PluginLabel(toolkit::UIView& parent, CallerPointer caller, std::string_view text);

    void setText(std::string_view text) override;
    void setFont(sdk::Font font) override;
    void setColor(sdk::Color color) override;
    void setAlignment(sdk::Alignment alignment) override;
    void setLines(int lines) override;
};

} // namespace plugins
