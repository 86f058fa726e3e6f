#include "platform/web/HTMLLimits.h"

#include <algorithm>

#include <glib.h>

namespace web {

namespace {

constexpr std::string_view spaces = " \t\n\f\r";
constexpr std::string_view nameEnds = " \t\n\f\r/>=";

/// The first of `characters` from `at` on, or the text's end.
std::size_t findAny(std::string_view text, std::string_view characters, std::size_t at) {
    return std::min(text.find_first_of(characters, at), text.size());
}

std::size_t skipSpaces(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(spaces, at), text.size());
}

/// Where an attribute's value, which begins at `at`, ends.
std::size_t valueEnd(std::string_view text, std::size_t at) {
    const char first = at < text.size() ? text[at] : '>';
    if (first != '"' && first != '\'')
        return findAny(text, " \t\n\f\r>", at);
    return std::min(findAny(text, std::string_view(&first, 1), at + 1) + 1, text.size());
}

/// Reads a tag's attributes, from behind its name on, as the parser would.
bool areAttributesWithinLimits(std::string_view text, std::size_t at) {
    for (std::size_t count = 0; at < text.size() && text[at] != '>';) {
        if (text[at] == '/' || spaces.find(text[at]) != std::string_view::npos) {
            ++at;
            continue;
        }
        if (++count > mostAttributesOfTag)
            return false;
        const std::size_t begin = at;
        at = skipSpaces(text, findAny(text, nameEnds, at + 1));
        if (at < text.size() && text[at] == '=')
            at = valueEnd(text, skipSpaces(text, at + 1));
        if (at - begin > longestAttributeValue)
            return false;
    }
    return true;
}

} // namespace

bool isWithinHTMLLimits(std::string_view text) {
    std::size_t tags = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const std::size_t name = at + 1 < text.size() && text[at + 1] == '/' ? at + 2 : at + 1;
        if (name >= text.size() || !g_ascii_isalpha(text[name]))
            continue;
        if (++tags > mostTags || !areAttributesWithinLimits(text, findAny(text, " \t\n\f\r/>", name)))
            return false;
    }
    return true;
}

} // namespace web
