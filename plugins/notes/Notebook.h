// All notes: a file each in the plug-in's storage, "note-1.txt" and so on.
//
// Only what the list shows is kept in memory. A file that does not hold a note is set aside under another
// name when the notes are loaded; its number is given to no other note, and nothing is ever written over it.
// Files with other names are left alone.
#pragma once

#include "NoteFile.h"
#include "NoteSummary.h"

#include "VelaPlugin.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace notesplugin {

class Notebook {
public:
    /// Loads the notes. `storage` lives longer; `log` gets a line for each file that is set aside.
    Notebook(vela::plugin::Storage& storage, std::function<void(std::string_view)> log);

    /// The latest changed first.
    std::vector<NoteSummary> summaries() const;
    /// How many files were found that hold no note, in this life.
    int damagedFiles() const { return damagedFiles_; }

    /// Nothing when the note is gone or can no longer be read.
    std::optional<std::string> text(NoteId id) const;
    /// Writes a new note; nothing when that failed, and then there is none.
    std::optional<NoteId> add(std::string text, std::int64_t now);
    /// Writes the note's text; the old one stands when that failed.
    bool update(NoteId id, std::string text, std::int64_t now);
    bool remove(NoteId id);

private:
    struct Entry {
        std::int64_t created = 0;
        NoteSummary summary;
    };

    void load();
    void setAside(const std::string& name, const std::string& contents);
    bool write(NoteId id, const Note& note);

    vela::plugin::Storage& storage_;
    std::function<void(std::string_view)> log_;
    std::map<NoteId, Entry> entries_;
    NoteId nextId_ = 1;
    int damagedFiles_ = 0;
};

} // namespace notesplugin
