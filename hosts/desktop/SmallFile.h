// Files of this machine that others have written, and that are small when they are what they should be.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace desktop {

/// The whole file; nothing when it is missing, unreadable, no regular file or larger than `maximumBytes`.
std::optional<std::string> readSmallFile(const std::filesystem::path& file, std::size_t maximumBytes);

} // namespace desktop
