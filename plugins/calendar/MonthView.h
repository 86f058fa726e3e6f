// The month on its card: follows the finger sideways, and tells which day was tapped.
#pragma once

#include "MonthPage.h"
#include "MonthSwipe.h"
#include "Slide.h"

#include "VelaPlugin.h"

#include <functional>
#include <memory>

namespace calendarplugin {

class MonthView {
public:
    struct Actions {
        std::function<void(Date)> onSelect;
        std::function<void(int months)> onTurn; // answered with turnTo()
    };

    struct Content {
        Month month;
        WeekStart start = WeekStart::Monday;
        Date today;
        Date selected;
        friend bool operator==(const Content&, const Content&) = default;
    };

    /// `host` and `notes` live longer.
    MonthView(vela::plugin::Host& host, const DayNotes& notes, Actions actions);

    void setFrame(vela::plugin::Rect frame) { area_->setFrame(frame); }
    void setHidden(bool hidden) { area_->setHidden(hidden); }
    /// Shows the content; another month slides in from its side.
    void show(const Content& content);
    /// A day has got a note or lost it.
    void notesChanged() { area_->setNeedsDisplay(); }
    /// Comes to rest at once, and leaves no timer behind.
    void rest();

private:
    void draw(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds) const;
    void drawPage(vela::plugin::Canvas& canvas, vela::plugin::Rect bounds, int months, double x) const;
    void touched(const vela::plugin::Touch& touch);
    void slide(double distance);
    double offset() const;
    std::optional<Date> dateAt(vela::plugin::Point point) const;

    vela::plugin::Host& host_;
    const DayNotes& notes_;
    Actions actions_;
    Content content_;
    MonthSwipe swipe_;
    Slide slide_;
    std::unique_ptr<vela::plugin::DrawnArea> area_;
    std::unique_ptr<vela::plugin::Timer> ticks_;
};

} // namespace calendarplugin
