// The note that is being edited: knows whether it has a file yet.
//
// A new note gets its file with its first text, and one whose text has all been taken out goes away when it
// is left; neither leaves empty files behind.
#pragma once

#include "Notebook.h"

#include <optional>
#include <string>

namespace notesplugin {

class NoteDraft {
public:
    /// A new note, or the one with that number.
    explicit NoteDraft(Notebook& notebook, std::optional<NoteId> id = {}) : notebook_(&notebook), id_(id) {}

    /// True when nothing of `text` would be lost.
    bool save(std::string text, std::int64_t now);
    /// When the note is left, all saved, with the text that it has.
    bool leave(const std::string& text);
    bool remove();
    bool hasFile() const { return id_.has_value(); }

private:
    Notebook* notebook_;
    std::optional<NoteId> id_;
};

} // namespace notesplugin
