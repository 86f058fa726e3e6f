#include "platform/foundation/TextReplacement.h"

namespace foundation {

std::string replacingOccurrences(std::string_view text, std::string_view part, std::string_view replacement) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part)) {
        result.append(text.substr(0, at)).append(replacement);
        text.remove_prefix(at + part.size());
    }
    return result.append(text);
}

} // namespace foundation
