// Whether bytes are a text. Any thread.
#pragma once

#include <string_view>

namespace foundation {

/// Whether `text` is sound UTF-8 without a zero byte. Much faster than others for texts that are mostly
/// ASCII.
bool isValidUtf8(std::string_view text);

} // namespace foundation
