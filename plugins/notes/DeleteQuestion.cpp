#include "DeleteQuestion.h"

#include "Look.h"
#include "PillButton.h"

#include <algorithm>

namespace notesplugin {

using namespace vela::plugin;

namespace {
constexpr Color shadeColor{0, 0, 0, 0.45};
constexpr Color cardColor{0.16, 0.16, 0.17, 0.97};
constexpr Color buttonColor = Color::white(1, 0.14);
constexpr double questionHeight = 64;
constexpr double cardHeight = questionHeight + look::barHeight + look::margin;
} // namespace

DeleteQuestion::DeleteQuestion(Host& host, std::function<void()> onConfirm)
    : shade_(host.addDrawnArea()),
      card_(host.addLabel()),
      question_(host.addLabel()),
      delete_(makePillButton(host, "Delete", colors::red, std::move(onConfirm))),
      cancel_(makePillButton(host, "Keep", colors::primary, [this] { cancel(); })) {
    shade_->onDraw(
        [](Canvas& canvas, Rect bounds) { canvas.fillRounded(bounds, look::cornerRadius, shadeColor); });
    shade_->onTouch([](const Touch&) {}); // what lies beneath is out of reach
    card_->setBackground(cardColor);
    card_->setCornerRadius(look::cornerRadius);
    question_->setFont({.size = 17, .weight = Weight::Semibold});
    question_->setColor(colors::primary);
    question_->setAlignment(Alignment::Center);
    question_->setLines(2);
    for (Button* button : {delete_.get(), cancel_.get()})
        button->setBackground(buttonColor);
    setHidden(true);
}

void DeleteQuestion::ask() {
    question_->setText("Delete this note?");
    for (Child* child : {static_cast<Child*>(shade_.get()), static_cast<Child*>(card_.get()),
                         static_cast<Child*>(question_.get()), static_cast<Child*>(delete_.get()),
                         static_cast<Child*>(cancel_.get())})
        child->bringToFront();
    setHidden(false);
}

void DeleteQuestion::showFailure() {
    question_->setText("It could not be deleted.\nTry again?");
}

void DeleteQuestion::layout(Rect bounds) {
    shade_->setFrame({0, 0, bounds.width, bounds.height});
    const double width = std::max(std::min(bounds.width - 2 * look::margin, 320.0), 0.0);
    const Rect card{(bounds.width - width) / 2, std::max((bounds.height - cardHeight) * 0.4, 0.0), width,
                    cardHeight};
    card_->setFrame(card);
    question_->setFrame(
        {card.x + look::margin, card.y, std::max(width - 2 * look::margin, 0.0), questionHeight});
    const double buttonWidth = std::max((width - 2 * look::margin - look::gap) / 2, 0.0);
    const double y = card.y + questionHeight;
    cancel_->setFrame({card.x + look::margin, y, buttonWidth, look::barHeight});
    delete_->setFrame({card.x + look::margin + buttonWidth + look::gap, y, buttonWidth, look::barHeight});
}

void DeleteQuestion::setHidden(bool hidden) {
    hidden_ = hidden;
    shade_->setHidden(hidden);
    card_->setHidden(hidden);
    question_->setHidden(hidden);
    delete_->setHidden(hidden);
    cancel_->setHidden(hidden);
}

} // namespace notesplugin
