// Makes a script of text. The text is hostile: everything in it is bounded and checked before it is played.
#pragma once

#include "hosts/script/Script.h"
#include "hosts/script/ScriptError.h"

#include <filesystem>
#include <string_view>

namespace script {

/// Throws ScriptError, with `file` as the name, at the first line that is no command.
Script parseScript(std::string_view text, const std::string& file);

/// Reads and parses a file; throws ScriptError also when it cannot be read.
Script readScript(const std::filesystem::path& path);

} // namespace script
