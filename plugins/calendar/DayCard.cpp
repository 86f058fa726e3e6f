#include "DayCard.h"

#include "DateText.h"
#include "Look.h"

namespace calendarplugin {

using namespace vela::plugin;

DayCard::DayCard(Host& host, Actions actions)
    : actions_(std::move(actions)),
      card_(host.addDrawnArea()),
      date_(host.addLabel()),
      dayAndWeek_(host.addLabel()),
      note_(host.addTextField()) {
    card_->onDraw(
        [](Canvas& canvas, Rect bounds) { canvas.fillRounded(bounds, look::cornerRadius, look::card); });
    date_->setFont({.size = 16, .weight = Weight::Semibold});
    date_->setColor(colors::primary);
    dayAndWeek_->setFont({.size = 13});
    dayAndWeek_->setColor(look::secondaryText);
    for (Label* label : {date_.get(), dayAndWeek_.get()})
        label->setLines(2);
    note_->setFont({.size = 16});
    note_->setColor(colors::primary);
    note_->setBackground(colors::fill);
    note_->setCornerRadius(8);
    note_->setPlaceholder("Add a note");
    note_->onChange([this] { actions_.onNote(note_->text()); });
    note_->onEditing([this](bool editing) { actions_.onEditing(editing); });
}

void DayCard::layout(const CalendarLayout& layout) {
    card_->setFrame(layout.card);
    date_->setFrame(layout.date);
    dayAndWeek_->setFrame(layout.dayAndWeek);
    note_->setFrame(layout.note);
}

void DayCard::show(Date date, const std::string& note) {
    date_->setText(fullDate(date));
    dayAndWeek_->setText(dayAndWeek(date));
    note_->setText(note);
}

} // namespace calendarplugin
