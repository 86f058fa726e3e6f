// A button among a plug-in's child views.
#pragma once

#include "platform/plugins/Handler.h"
#include "platform/plugins/PluginChild.h"
#include "platform/toolkit/views/UIButton.h"

namespace plugins {

class PluginButton final : public PluginChild<sdk::Button, toolkit::UIButton> {
public:
    PluginButton(toolkit::UIView& parent, CallerPointer caller, std::string_view title);

    void setTitle(std::string_view title) override;
    void setFont(sdk::Font font) override;
    void setColor(sdk::Color color) override;
    void setImage(const sdk::ImagePointer& image) override;
    void setEnabled(bool enabled) override;
    void onTap(std::function<void()> handler) override;

private:
    std::shared_ptr<Handler<>> tap_ = std::make_shared<Handler<>>();
};

} // namespace plugins
