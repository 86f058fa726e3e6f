#include "NotesView.h"

namespace notesplugin {

using namespace vela::plugin;

NotesView::NotesView(Host& host)
    : View(host),
      notebook_(host.storage(), [&host](std::string_view line) { host.log(line); }),
      list_(host, notebook_, {[this] { openNew(); }, [this](NoteId id) { openNote(id); }}),
      editor_(host, notebook_, {[this] { showList(); }, [this] { question_.ask(); }}),
      question_(host, [this] { deleteNote(); }) {
    list_.reload();
}

void NotesView::layout(Rect bounds) {
    list_.layout(bounds);
    editor_.layout(bounds);
    question_.layout(bounds);
}

void NotesView::appWillBecomeFirstResponder() {
    if (!editor_.isOpen())
        list_.reload(); // "Today" may have become "Yesterday"
}

void NotesView::appBecomeActive() {
    resume();
}

void NotesView::appWillEnterBackground() {
    editor_.flush();
}

void NotesView::appDidEnterBackground() {
    pause();
}

void NotesView::velaInvoked() {
    resume();
}

void NotesView::velaDismissed() {
    pause();
}

void NotesView::tapTitleLabel() {
    if (editor_.isOpen())
        editor_.setEditing(false);
    else
        list_.scrollToTop();
}

void NotesView::resume() {
    editor_.resume();
}

void NotesView::pause() {
    editor_.setEditing(false);
    editor_.flush();
}

void NotesView::openNew() {
    editor_.open(NoteDraft(notebook_), {});
    showEditor();
    editor_.setEditing(true);
}

void NotesView::openNote(NoteId id) {
    const auto text = notebook_.text(id);
    if (!text) {
        host().log("A note can no longer be read");
        return;
    }
    editor_.open(NoteDraft(notebook_, id), *text);
    showEditor();
}

void NotesView::deleteNote() {
    if (!editor_.deleteNote()) {
        question_.showFailure();
        return;
    }
    question_.cancel();
    showList();
}

void NotesView::showList() {
    editor_.setHidden(true);
    list_.reload();
    list_.setHidden(false);
}

void NotesView::showEditor() {
    list_.setHidden(true);
    editor_.setHidden(false);
}

VELA_PRINCIPAL_CLASS(NotesView)

} // namespace notesplugin
