// Whether a file is a whole program library for this machine.
//
// The loader trusts what it maps: a file that was cut off brings the process down. So the headers are checked
// first, by what this very program's own say.
#pragma once

#include <filesystem>

namespace plugins {

/// False for what is no regular file, too.
bool isLoadableHere(const std::filesystem::path& file);

} // namespace plugins
