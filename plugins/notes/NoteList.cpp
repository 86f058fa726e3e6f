#include "NoteList.h"

#include "Look.h"
#include "NoteDate.h"
#include "PillButton.h"

#include <algorithm>

namespace notesplugin {

using namespace vela::plugin;

NoteList::NoteList(Host& host, const Notebook& notebook, Actions actions)
    : host_(host),
      notebook_(notebook),
      actions_(std::move(actions)),
      count_(host.addLabel()),
      newButton_(makePillButton(host, "New", colors::yellow, [this] { actions_.onNew(); })),
      empty_(host.addLabel("No notes yet.\nTap New to write one.")),
      scroll_(host.addScrollArea()) {
    for (Label* label : {count_.get(), empty_.get()}) {
        label->setColor(colors::primary);
        label->setAlignment(Alignment::Center);
        label->setBackground(look::card);
        label->setCornerRadius(look::cornerRadius);
    }
    count_->setFont({.size = 15, .weight = Weight::Medium});
    empty_->setFont({.size = 17});
    empty_->setLines(0);
}

void NoteList::layout(Rect bounds) {
    const double width = std::max(bounds.width - 2 * look::margin, 0.0);
    const double buttonWidth = std::min(92.0, width);
    newButton_->setFrame({bounds.width - look::margin - buttonWidth, 0, buttonWidth, look::barHeight});
    count_->setFrame({look::margin, 0, std::max(width - buttonWidth - look::gap, 0.0), look::barHeight});
    const double top = look::barHeight + look::gap;
    scroll_->setFrame({look::margin, top, width, std::max(bounds.height - top, 0.0)});
    empty_->setFrame({look::margin, top, width, std::min(110.0, std::max(bounds.height - top, 0.0))});
    placeRows();
}

void NoteList::placeRows() {
    const double width = scroll_->frame().width;
    double y = 0;
    for (const auto& row : rows_) {
        row->setFrame({0, y, width, NoteRow::height});
        y += NoteRow::height + look::gap;
    }
    scroll_->setContentSize({width, y});
}

void NoteList::setHidden(bool hidden) {
    hidden_ = hidden;
    count_->setHidden(hidden);
    newButton_->setHidden(hidden);
    scroll_->setHidden(hidden);
    empty_->setHidden(hidden || !rows_.empty());
}

void NoteList::reload() {
    const WallTime now = host_.wallTime();
    const auto summaries = notebook_.summaries();
    rows_.clear();
    for (const NoteSummary& summary : summaries)
        rows_.push_back(std::make_unique<NoteRow>(scroll_->content(), summary,
                                                  describeMoment(summary.modified, now), actions_.onOpen));
    placeRows();
    showCount(summaries.size());
    empty_->setHidden(hidden_ || !rows_.empty());
}

void NoteList::showCount(std::size_t count) {
    std::string text = count == 1 ? "1 note" : std::to_string(count) + " notes";
    if (const int damaged = notebook_.damagedFiles(); damaged > 0)
        text += ", " + std::to_string(damaged) + " damaged";
    count_->setText(text);
}

void NoteList::scrollToTop() {
    scroll_->setOffset({0, 0}, true);
}

} // namespace notesplugin
