// The plug-in's view: the list of notes, and the editor of the one that was opened.
#pragma once

#include "DeleteQuestion.h"
#include "NoteEditor.h"
#include "NoteList.h"
#include "Notebook.h"

#include "VelaPlugin.h"

namespace notesplugin {

class NotesView : public vela::plugin::View {
public:
    explicit NotesView(vela::plugin::Host& host);

    void layout(vela::plugin::Rect bounds) override;

    void appWillBecomeFirstResponder();
    void appBecomeActive();
    void appWillEnterBackground();
    void appDidEnterBackground();
    void tapTitleLabel();
    void velaInvoked();
    void velaDismissed();

private:
    void resume();
    void pause();
    void openNew();
    void openNote(NoteId id);
    void deleteNote();
    void showList();
    void showEditor();

    Notebook notebook_;
    NoteList list_;
    NoteEditor editor_;
    DeleteQuestion question_;
};

} // namespace notesplugin
