#include "hosts/session/surfaces/Stage.h"

#include "hosts/session/wayland/Protocols.h"

#include <algorithm>
#include <cmath>

namespace session {

using toolkit::SeparateWindow;

namespace {

PointRect wholeScreen(toolkit::Size screen) {
    return PointRect::around({{0, 0}, screen});
}

bool takesTouches(const toolkit::UIWindow& window) {
    const toolkit::Rect bounds = window.bounds();
    return !window.isHidden() && window.takesTouchAt(bounds.center());
}

} // namespace

Stage::Stage(Globals& globals, SolidPixels& pixels, Glass& glass, const Output& output, toolkit::Size screen,
             Callbacks callbacks)
    : globals_(globals),
      pixels_(pixels),
      glass_(glass),
      screen_(screen),
      callbacks_(std::move(callbacks)),
      surface_(
          globals, pixels, output, "vela-panels", [this] { commitFrame(); }, callbacks_.closed) {
    surface_.place(wholeScreen(screen));
    surface_.setTouchable({});
}

void Stage::show(const std::vector<SeparateWindow>& windows) {
    std::vector<std::uint64_t> order;
    for (const SeparateWindow& shown : windows) {
        order.push_back(shown.window->layer()->id());
        auto [place, isNew] =
            windows_.try_emplace(order.back(), globals_, pixels_, glass_, *surface_.surface());
        place->second.show(*shown.picture, screen_);
    }
    for (auto& [id, pieces] : windows_)
        if (std::ranges::find(order, id) == order.end())
            pieces.hide();
    stack(order);
    takeTouches(windows);
    commitFrame();
}

void Stage::stack(const std::vector<std::uint64_t>& order) {
    if (order == order_)
        return;
    wl_surface* below = surface_.surface();
    for (const std::uint64_t id : order)
        below = &windows_.at(id).stackAbove(*below);
    order_ = order;
}

void Stage::takeTouches(const std::vector<SeparateWindow>& windows) {
    std::vector<PointRect> areas;
    for (const SeparateWindow& shown : windows)
        if (takesTouches(*shown.window))
            areas.push_back(PointRect::around(shown.window->frame()).intersection(wholeScreen(screen_)));
    if (areas == touchable_)
        return;
    surface_.setTouchable(areas);
    touchable_ = std::move(areas);
}

void Stage::setKeyboardUse(KeyboardUse use) {
    if (use == keyboardUse_)
        return;
    keyboardUse_ = use;
    surface_.setKeyboardUse(use);
}

void Stage::commitFrame() {
    if (surface_.isReady() && !frame_) {
        static constexpr wl_callback_listener listener{[](void* data, wl_callback*, std::uint32_t) {
            auto& self = *static_cast<Stage*>(data);
            self.frame_.reset();
            const auto frameDue = self.callbacks_.frameDue; // which may take the stage down
            frameDue();
        }};
        frame_.reset(wl_surface_frame(surface_.surface()));
        wl_callback_add_listener(frame_.get(), &listener, this);
    }
    surface_.commit();
}

} // namespace session
