// Reads the small text files by which the kernel tells of itself.
#pragma once

#include <optional>
#include <string>

namespace systemplugin {

/// At most the first 256 KB, which is more than any of them needs; nothing when it cannot be read, or is no
/// regular file (so that nothing can make the reader wait).
std::optional<std::string> readKernelFile(const std::string& path);

} // namespace systemplugin
