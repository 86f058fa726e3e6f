#include "platform/plugins/PluginScrollArea.h"

namespace plugins {

PluginScrollArea::PluginScrollArea(toolkit::UIView& parent, const CallerPointer& caller)
    : PluginChild(parent, caller, std::make_shared<toolkit::UIScrollView>()), content_(view(), caller) {
    view().setClipsToBounds(true);
}

void PluginScrollArea::setContentSize(sdk::Size size) {
    view().setContentSize(toToolkit(size));
}

sdk::Point PluginScrollArea::offset() const {
    return {view().contentOffset().x, view().contentOffset().y};
}

void PluginScrollArea::setOffset(sdk::Point offset, bool animated) {
    if (animated)
        view().setContentOffsetAnimated(toToolkit(offset));
    else
        view().setContentOffset(toToolkit(offset));
}

} // namespace plugins
