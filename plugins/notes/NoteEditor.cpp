#include "NoteEditor.h"

#include "EditorLayout.h"
#include "Look.h"
#include "PillButton.h"

#include <cmath>

namespace notesplugin {

using namespace vela::plugin;

namespace {
constexpr double textInset = 7; // points from the card's sides
}

NoteEditor::NoteEditor(Host& host, Notebook& notebook, Actions actions)
    : host_(host),
      actions_(std::move(actions)),
      draft_(notebook),
      back_(makePillButton(host, "‹ Notes", colors::yellow, [this] { leave(); })),
      status_(host.addLabel()),
      action_(makePillButton(host, "Delete", colors::red, [this] { actionTapped(); })),
      card_(host.addLabel()),
      text_(host.addTextView()),
      autoSave_(
          [&host](double seconds, std::function<void()> handler) {
              return host.startTimer(seconds, false, std::move(handler));
          },
          [this] { return save(); }) {
    status_->setFont({.size = 13, .weight = Weight::Medium});
    status_->setAlignment(Alignment::Center);
    for (Label* label : {status_.get(), card_.get()}) {
        label->setBackground(look::card);
        label->setCornerRadius(look::cornerRadius);
    }
    text_->setFont({.size = 17});
    text_->setColor(colors::primary);
    text_->onChange([this] {
        autoSave_.changed(text_->text().size());
        showStatus();
    });
    text_->onEditing([this](bool editing) { editingChanged(editing); });
    setHidden(true);
}

NoteEditor::~NoteEditor() {
    flush();
}

void NoteEditor::open(NoteDraft draft, std::string_view text) {
    flush();
    draft_ = std::move(draft);
    text_->setText(text);
    open_ = true;
    showStatus();
}

bool NoteEditor::save() {
    const bool saved = draft_.save(text_->text(), std::llround(std::floor(host_.wallTime().seconds)));
    if (!saved)
        host_.log("A note could not be saved");
    return saved;
}

void NoteEditor::flush() {
    autoSave_.flush();
    showStatus();
}

void NoteEditor::resume() {
    autoSave_.resume();
}

void NoteEditor::leave() {
    text_->setEditing(false);
    const bool saved = autoSave_.flush();
    showStatus();
    if (!saved)
        return; // the text is still here, and the status says why
    if (!draft_.leave(text_->text()))
        host_.log("An empty note could not be removed");
    open_ = false;
    actions_.onBack();
}

bool NoteEditor::deleteNote() {
    if (!draft_.remove())
        return false;
    autoSave_.discard();
    text_->setEditing(false);
    text_->setText({});
    open_ = false;
    return true;
}

void NoteEditor::actionTapped() {
    if (editing_)
        text_->setEditing(false);
    else
        actions_.onDelete();
}

void NoteEditor::editingChanged(bool editing) {
    editing_ = editing;
    if (!editing)
        autoSave_.flush();
    action_->setTitle(editing ? "Done" : "Delete");
    action_->setColor(editing ? colors::yellow : colors::red);
    showStatus();
    host_.setNeedsLayout();
}

void NoteEditor::showStatus() {
    const bool failed = autoSave_.hasFailed();
    status_->setColor(failed ? colors::orange : look::secondaryText);
    status_->setText(failed                  ? "Not saved!"
                     : autoSave_.isUnsaved() ? "Saving…"
                     : draft_.hasFile()      ? "Saved"
                                             : "New note");
}

void NoteEditor::layout(Rect bounds) {
    const EditorLayout layout = layOutEditor(bounds.size(), editing_);
    barHidden_ = layout.barHidden;
    back_->setFrame(layout.back);
    status_->setFrame(layout.status);
    action_->setFrame(layout.action);
    card_->setFrame(layout.text);
    text_->setFrame(layout.text.insetBy(textInset, 2));
    setHidden(hidden_);
}

void NoteEditor::setHidden(bool hidden) {
    hidden_ = hidden;
    back_->setHidden(hidden || barHidden_);
    status_->setHidden(hidden || barHidden_);
    action_->setHidden(hidden);
    card_->setHidden(hidden);
    text_->setHidden(hidden);
}

} // namespace notesplugin
