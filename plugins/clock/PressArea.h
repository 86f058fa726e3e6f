// Something that is drawn and can be tapped: it is told to the drawing while a finger is on it.
#pragma once

#include "VelaPlugin.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace clockplugin {

class PressArea {
public:
    using Draw = std::function<void(vela::plugin::Canvas&, vela::plugin::Rect bounds, bool isPressed)>;
    /// With the point where the finger was lifted. It may destroy the area.
    using Tap = std::function<void(vela::plugin::Point)>;

    PressArea(vela::plugin::Container& container, Draw draw, Tap tap);
    PressArea(const PressArea&) = delete;
    PressArea& operator=(const PressArea&) = delete;

    void setFrame(vela::plugin::Rect frame);
    vela::plugin::Rect frame() const { return area_->frame(); }
    void setNeedsDisplay() { area_->setNeedsDisplay(); }
    /// A disabled one takes no taps; its looks are the drawing's affair.
    void setEnabled(bool enabled);

private:
    void touched(const vela::plugin::Touch& touch);
    bool isOn(const vela::plugin::Touch& touch) const;
    void setPressed(bool pressed);

    Draw draw_;
    Tap tap_;
    bool isEnabled_ = true;
    bool isPressed_ = false;
    std::optional<std::int64_t> finger_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
};

} // namespace clockplugin
