// A scrolling area among a plug-in's child views.
#pragma once

#include "platform/plugins/PluginContainer.h"
#include "platform/toolkit/scrolling/UIScrollView.h"

namespace plugins {

class PluginScrollArea final : public PluginChild<sdk::ScrollArea, toolkit::UIScrollView> {
public:
    PluginScrollArea(toolkit::UIView& parent, const CallerPointer& caller);

    sdk::Container& content() override { return content_; }
    void setContentSize(sdk::Size size) override;
    sdk::Point offset() const override;
    void setOffset(sdk::Point offset, bool animated) override;

private:
    class Content final : public PluginContainer<sdk::Container> {
    public:
        using PluginContainer::PluginContainer;
    };
    Content content_;
};

} // namespace plugins
