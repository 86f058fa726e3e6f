// Short texts that somebody else wrote.
#pragma once

#include <optional>
#include <string>

namespace vela {

/// What is longer is nothing that a settings page can show under a row.
inline constexpr std::size_t longestTextFile = 64 * 1024; // bytes

/// The file at a device path as text; nothing when it cannot be read, is longer than the limit or is not
/// UTF-8 text.
std::optional<std::string> readTextFile(const std::string& devicePath);

} // namespace vela
