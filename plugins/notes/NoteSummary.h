// What the list shows of a note: its first two lines that hold anything, shortened, and when it was changed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace notesplugin {

using NoteId = std::uint64_t;

struct NoteSummary {
    NoteId id = 0;
    std::int64_t modified = 0; // seconds since 1970
    std::string title;         // empty when the note has nothing but blanks
    std::string preview;       // what follows the title
    friend bool operator==(const NoteSummary&, const NoteSummary&) = default;
};

NoteSummary summarize(NoteId id, std::int64_t modified, std::string_view text);

} // namespace notesplugin
