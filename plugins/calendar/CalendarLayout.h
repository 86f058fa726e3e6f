// Where the parts of the calendar lie: below each other on a tall panel, the chosen day beside the month on a
// wide one. While a day's note is typed its card moves to the top, out of the keyboard's way.
#pragma once

#include "VelaPlugin.h"

namespace calendarplugin {

struct CalendarLayout {
    vela::plugin::Rect previous;
    vela::plugin::Rect title;
    vela::plugin::Rect next;
    vela::plugin::Rect month; // the weekdays' heads and the days
    vela::plugin::Rect card;  // behind what is told of the chosen day
    vela::plugin::Rect date;
    vela::plugin::Rect dayAndWeek;
    vela::plugin::Rect note;
    vela::plugin::Rect today;
    vela::plugin::Rect weekStart;
    bool monthHidden = false;
};

CalendarLayout layOutCalendar(vela::plugin::Size panel, bool editing);

} // namespace calendarplugin
