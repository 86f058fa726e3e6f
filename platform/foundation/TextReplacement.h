// Replacing parts of texts. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace foundation {

/// Every occurrence of `part` replaced, in one pass from the left: what comes about by a replacement is not
/// replaced again. `part` is not empty.
std::string replacingOccurrences(std::string_view text, std::string_view part, std::string_view replacement);

} // namespace foundation
