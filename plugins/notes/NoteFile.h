// How one note stands in its file: a head of four lines, an empty one, and the text as it was typed.
//
// The head holds the text's length, so that a file that was cut off, or filled up with zeros, is told from a
// note and never taken for one. Times are whole seconds since 1970.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace notesplugin {

struct Note {
    std::int64_t created = 0;
    std::int64_t modified = 0;
    std::string text;
    friend bool operator==(const Note&, const Note&) = default;
};

/// What is not plain text in the note's text is replaced.
std::string encodeNote(const Note& note);
/// Nothing when the contents are not exactly what encodeNote() makes of some note.
std::optional<Note> decodeNote(std::string_view contents);

/// Whether the text is well-formed UTF-8 without zero bytes.
bool isPlainText(std::string_view text);
/// The text with a replacement character for every byte that keeps it from being plain.
std::string plainText(std::string_view text);

} // namespace notesplugin
