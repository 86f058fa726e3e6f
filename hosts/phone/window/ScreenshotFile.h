// Screenshots that the user asks for, in the user's pictures.
#pragma once

#include "platform/toolkit/rendering/Image.h"

#include <filesystem>
#include <optional>

namespace phone {

/// Writes the picture under the time of day; answers where, or nothing when that failed.
std::optional<std::filesystem::path> writeScreenshotFile(const toolkit::Image& picture);

} // namespace phone
