#include "hosts/script/NowPlayingEntry.h"

#include "hosts/script/PreferenceValue.h"

#include <array>
#include <stdexcept>

namespace script {

namespace {

constexpr std::string_view prefix = "kMRMediaRemoteNowPlayingInfo";
constexpr std::array<std::string_view, 4> numbers{"Duration", "ElapsedTime", "PlaybackRate",
                                                  "UniqueIdentifier"};

bool holdsNumber(std::string_view key) {
    for (const auto& name : numbers)
        if (key.substr(prefix.size()) == name)
            return true;
    return false;
}

std::string wholeKey(std::string_view key) {
    if (key.starts_with(prefix))
        return std::string(key);
    std::string whole(prefix);
    whole += key;
    char& first = whole[prefix.size()];
    if (first >= 'a' && first <= 'z')
        first = static_cast<char>(first - 'a' + 'A');
    return whole;
}

} // namespace

std::pair<std::string, foundation::PropertyList> parseNowPlayingEntry(std::string_view word) {
    const std::size_t equals = word.find('=');
    if (equals == std::string_view::npos || equals == 0)
        throw std::invalid_argument("\"" + std::string(word) + "\" is not of the form KEY=VALUE");
    const std::string key = wholeKey(word.substr(0, equals)), text(word.substr(equals + 1));
    if (holdsNumber(key)) {
        try {
            return {key, parsePreferenceValue("number", text)};
        } catch (const std::invalid_argument&) {
            return {key, text}; // players send all sorts of things
        }
    }
    return {key, text};
}

} // namespace script
