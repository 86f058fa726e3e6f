// A city in the list of world clocks. It is drawn again only when what it shows has changed.
#pragma once

#include "ClockModel.h"
#include "PressArea.h"
#include "VelaPlugin.h"

#include <functional>
#include <optional>

namespace clockplugin {

class WorldClockRow {
public:
    static constexpr double height = 68;

    WorldClockRow(vela::plugin::Container& container, const ClockModel& model, const City& city,
                  std::function<void()> onRemove);

    void setFrame(vela::plugin::Rect frame) { area_.setFrame(frame); }
    /// Shows the sign that removes the city.
    void setEditing(bool editing);
    /// Looks at the time.
    void update();
    void setNeedsDisplay() { area_.setNeedsDisplay(); }

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, bool isPressed) const;
    void drawTime(vela::plugin::Canvas& canvas, vela::plugin::Rect rect) const;

    const ClockModel& model_;
    const City& city_;
    bool isEditing_ = false;
    std::optional<ZonedTime> time_;
    PressArea area_;
};

} // namespace clockplugin
