#include "NoteFile.h"

#include <algorithm>
#include <charconv>

namespace notesplugin {

namespace {
constexpr std::string_view signature = "vela note 1\n";
constexpr std::int64_t latestTime = 253402300799; // the end of the year 9999

bool take(std::string_view& rest, std::string_view expected) {
    if (!rest.starts_with(expected))
        return false;
    rest.remove_prefix(expected.size());
    return true;
}

/// A line "name number".
std::optional<std::int64_t> takeNumber(std::string_view& rest, std::string_view name) {
    if (!take(rest, name) || !take(rest, " "))
        return std::nullopt;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number);
    if (error != std::errc{} || number < 0 || number > latestTime)
        return std::nullopt;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    return take(rest, "\n") ? std::optional(number) : std::nullopt;
}

/// The length of the character that `text` begins with, or 0 when there is no well-formed one.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char first = byte(0);
    if (first < 0x80)
        return first == 0 ? 0 : 1;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return 0;
    for (std::size_t index = 1; index < length; ++index)
        if ((byte(index) & 0xC0) != 0x80)
            return 0;
    const bool overlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool surrogate = first == 0xED && byte(1) > 0x9F;
    const bool beyond = first == 0xF4 && byte(1) > 0x8F;
    return overlong || surrogate || beyond ? 0 : length;
}
} // namespace

std::string encodeNote(const Note& note) {
    std::string contents(signature);
    contents += "created " + std::to_string(note.created) + "\n";
    contents += "modified " + std::to_string(note.modified) + "\n";
    const std::string text = plainText(note.text);
    contents += "bytes " + std::to_string(text.size()) + "\n\n";
    contents += text;
    return contents;
}

std::optional<Note> decodeNote(std::string_view contents) {
    if (!take(contents, signature))
        return std::nullopt;
    const auto created = takeNumber(contents, "created");
    const auto modified = created ? takeNumber(contents, "modified") : std::nullopt;
    const auto bytes = modified ? takeNumber(contents, "bytes") : std::nullopt;
    if (!bytes || !take(contents, "\n") || contents.size() != static_cast<std::uint64_t>(*bytes) ||
        !isPlainText(contents))
        return std::nullopt;
    return Note{*created, *modified, std::string(contents)};
}

std::string plainText(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        plain += length > 0 ? text.substr(0, length) : "\uFFFD";
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return plain;
}

bool isPlainText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

} // namespace notesplugin
