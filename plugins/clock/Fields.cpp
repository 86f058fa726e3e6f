#include "Fields.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace clockplugin {

void Fields::add(std::string_view key, std::string_view value) {
    text_.append(key).append(" ").append(value).append("\n");
}

std::string_view Fields::value(std::string_view key) const {
    std::string_view rest = text_;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        if (line.size() > key.size() && line.substr(0, key.size()) == key && line[key.size()] == ' ')
            return line.substr(key.size() + 1);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {};
}

std::optional<std::int64_t> Fields::integer(std::string_view key, std::int64_t least,
                                            std::int64_t greatest) const {
    const std::string_view text = value(key);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least || number > greatest)
        return std::nullopt;
    return number;
}

} // namespace clockplugin
