#include "platform/toolkit/windows/SeparateWindows.h"

#include <algorithm>
#include <iterator>

namespace toolkit {

namespace {

/// Before anything is painted: a window that lies off the screen costs nothing.
bool canBeSeen(const Layer& layer, const Rect& screen, OffScreen offScreen) {
    const Rect bounds = std::get<Rect>(layer.presented(LayerProperty::Bounds));
    const Rect frame = layer.presentedToParent().apply(bounds);
    const Rect shown = offScreen == OffScreen::Prepared ? frame : frame.intersection(screen);
    return !layer.isHidden() && !shown.isEmpty() &&
           std::get<double>(layer.presented(LayerProperty::Opacity)) > 0;
}

} // namespace

const std::vector<SeparateWindow>& SeparateWindows::update(const std::vector<UIWindow*>& windows, Size screen,
                                                           double scale, OffScreen offScreen) {
    std::erase_if(pictures_, [&windows](const auto& entry) {
        return std::ranges::none_of(
            windows, [&](const UIWindow* window) { return window->layer()->id() == entry.first; });
    });
    visible_.clear();
    for (UIWindow* window : windows) {
        if (!canBeSeen(*window->layer(), {{0, 0}, screen}, offScreen))
            continue;
        TreePicture& picture = pictures_[window->layer()->id()];
        picture.update(window->layer(), scale);
        if (picture.look().isVisible())
            visible_.push_back({window, &picture});
    }
    return visible_;
}

void SeparateWindows::forget() {
    visible_.clear();
    pictures_.clear();
}

} // namespace toolkit
