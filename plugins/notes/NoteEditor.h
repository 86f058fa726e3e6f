// The second screen: one note's text, which saves itself.
#pragma once

#include "AutoSave.h"
#include "NoteDraft.h"

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <string>

namespace notesplugin {

class NoteEditor {
public:
    struct Actions {
        std::function<void()> onBack;   // everything is saved by then
        std::function<void()> onDelete; // the user asks for it, and is still to confirm
    };

    /// `host` and `notebook` live longer. Saves what is unsaved when it goes.
    NoteEditor(vela::plugin::Host& host, Notebook& notebook, Actions actions);
    ~NoteEditor();

    void open(NoteDraft draft, std::string_view text);
    bool isOpen() const { return open_; }
    /// Takes the open note away; false when that failed.
    bool deleteNote();

    void layout(vela::plugin::Rect bounds);
    void setHidden(bool hidden);
    void setEditing(bool editing) { text_->setEditing(editing); }
    /// Saves what is unsaved and leaves no timer.
    void flush();
    void resume();

private:
    bool save();
    void leave();
    void actionTapped();
    void editingChanged(bool editing);
    void showStatus();

    vela::plugin::Host& host_;
    Actions actions_;
    NoteDraft draft_;
    bool open_ = false;
    bool hidden_ = true;
    bool editing_ = false;
    bool barHidden_ = false;
    std::unique_ptr<vela::plugin::Button> back_;
    std::unique_ptr<vela::plugin::Label> status_;
    std::unique_ptr<vela::plugin::Button> action_;
    std::unique_ptr<vela::plugin::Label> card_; // behind the text
    std::unique_ptr<vela::plugin::TextView> text_;
    AutoSave autoSave_;
};

} // namespace notesplugin
