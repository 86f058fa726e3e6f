#include "hosts/phone/music/StreamTitle.h"

namespace phone {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

} // namespace

StreamTitle StreamTitle::parse(std::string_view text) {
    constexpr std::string_view separator = " - ";
    const std::size_t dash = text.find(separator);
    if (dash == std::string_view::npos)
        return {trimmed(text), ""};
    return {trimmed(text.substr(dash + separator.size())), trimmed(text.substr(0, dash))};
}

} // namespace phone
