#include "NoteSummary.h"

#include <algorithm>

namespace notesplugin {

namespace {
constexpr std::size_t longestLine = 160; // bytes; more than any panel shows in a line
constexpr std::string_view blanks = " \t\r\n\v\f";

/// The next line that holds more than blanks, without those around it, taken off `rest`.
std::string_view takeLine(std::string_view& rest) {
    const std::size_t start = rest.find_first_not_of(blanks);
    if (start == std::string_view::npos) {
        rest = {};
        return {};
    }
    rest.remove_prefix(start);
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, length);
    rest.remove_prefix(length);
    return line.substr(0, line.find_last_not_of(blanks) + 1);
}

/// Cut between characters, never within one; tabs become blanks.
std::string shortened(std::string_view line) {
    std::size_t length = line.size();
    if (length > longestLine) {
        length = longestLine;
        while (length > 0 && (static_cast<unsigned char>(line[length]) & 0xC0) == 0x80)
            --length;
    }
    std::string result(line.substr(0, length));
    for (char& character : result)
        if (static_cast<unsigned char>(character) < ' ')
            character = ' ';
    return result;
}
} // namespace

NoteSummary summarize(NoteId id, std::int64_t modified, std::string_view text) {
    const std::string_view title = takeLine(text);
    const std::string_view preview = takeLine(text);
    return {id, modified, shortened(title), shortened(preview)};
}

} // namespace notesplugin
