// What is told of the chosen day, and the field for its note.
#pragma once

#include "CalendarDate.h"
#include "CalendarLayout.h"

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <string>

namespace calendarplugin {

class DayCard {
public:
    struct Actions {
        std::function<void(const std::string& text)> onNote; // after every edit
        std::function<void(bool editing)> onEditing;
    };

    DayCard(vela::plugin::Host& host, Actions actions);

    void layout(const CalendarLayout& layout);
    void show(Date date, const std::string& note);
    void endEditing() { note_->setEditing(false); }
    bool isEditing() const { return note_->isEditing(); }

private:
    Actions actions_;
    std::unique_ptr<vela::plugin::DrawnArea> card_;
    std::unique_ptr<vela::plugin::Label> date_;
    std::unique_ptr<vela::plugin::Label> dayAndWeek_;
    std::unique_ptr<vela::plugin::TextField> note_;
};

} // namespace calendarplugin
