#include "CalendarLayout.h"

#include "Look.h"

#include <algorithm>

namespace calendarplugin {

using vela::plugin::Rect;
using vela::plugin::Size;

namespace {
constexpr double buttonHeight = 44;
constexpr double cardHeight = 116;
constexpr double leastSideWidth = 116; // of the chosen day's card beside the month
constexpr double inset = 10;
constexpr double lineHeight = 24;

void placeBar(CalendarLayout& layout, double left, double width, double height) {
    const double button = std::min(buttonHeight, width / 3);
    layout.previous = {left, 0, button, height};
    layout.next = {left + width - button, 0, button, height};
    layout.title = {left + button + look::gap, 0, std::max(width - 2 * (button + look::gap), 0.0), height};
}

/// The chosen day's lines and its note's field within the card.
void fillCard(CalendarLayout& layout, double dateLines) {
    const Rect card = layout.card;
    const double width = std::max(card.width - 2 * inset, 0.0);
    layout.date = {card.x + inset, card.y + 6, width, lineHeight * dateLines};
    layout.dayAndWeek = {card.x + inset, layout.date.bottom(), width, dateLines > 1 ? 36.0 : 20.0};
    const double field =
        std::min(buttonHeight, std::max(card.bottom() - inset - layout.dayAndWeek.bottom(), 0.0));
    layout.note = {card.x + inset, card.bottom() - inset - field, width, field};
}

CalendarLayout layOutTall(Size panel, bool editing) {
    CalendarLayout layout;
    const double width = std::max(panel.width - 2 * look::margin, 0.0);
    const double below = cardHeight + buttonHeight + 2 * look::gap;
    placeBar(layout, look::margin, width, buttonHeight);
    const double top = buttonHeight + look::gap;
    layout.month = {look::margin, top, width, std::clamp(panel.height - top - below, 150.0, width * 1.25)};
    layout.card = {look::margin, layout.month.bottom() + look::gap, width, cardHeight};
    const double half = (width - look::gap) / 2;
    const double last = layout.card.bottom() + look::gap;
    layout.today = {look::margin, last, half, buttonHeight};
    layout.weekStart = {look::margin + half + look::gap, last, half, buttonHeight};
    if (editing) {
        layout.card.y = 0;
        layout.monthHidden = true;
    }
    fillCard(layout, 1);
    return layout;
}

CalendarLayout layOutWide(Size panel, bool editing) {
    CalendarLayout layout;
    const double width = std::max(panel.width - 2 * look::margin, 0.0);
    const double side = std::max(leastSideWidth, width * 0.38);
    const double left = std::max(width - side - look::gap, 0.0);
    const double bar = panel.height >= 280 ? buttonHeight : 34;
    placeBar(layout, look::margin, left, bar);
    const double top = bar + 4;
    layout.month = {look::margin, top, left, std::max(panel.height - top, 0.0)};
    const double sideLeft = look::margin + left + look::gap;
    const double last = panel.height - bar;
    const double half = (side - 4) / 2;
    layout.today = {sideLeft, last, half, bar};
    layout.weekStart = {sideLeft + half + 4, last, half, bar};
    layout.card = {sideLeft, 0, side, std::max(last - look::gap, 0.0)};
    if (editing) {
        layout.card = {look::margin, 0, width, cardHeight - 50};
        layout.monthHidden = true;
        fillCard(layout, 0);
        layout.dayAndWeek = {};
        layout.date = {};
        layout.note = {layout.card.x + inset, 11, layout.card.width - 2 * inset, buttonHeight};
        return layout;
    }
    fillCard(layout, 2);
    return layout;
}
} // namespace

CalendarLayout layOutCalendar(Size panel, bool editing) {
    return panel.width > panel.height ? layOutWide(panel, editing) : layOutTall(panel, editing);
}

} // namespace calendarplugin
