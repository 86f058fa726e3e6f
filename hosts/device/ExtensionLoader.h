// Loads the extension into the home-screen process. Its load-time constructor does the rest.
#pragma once

#include <filesystem>

namespace device {

/// Loads a dynamic library for the life of the process. The phone must exist and must not have launched yet.
/// Throws ProgramError when it cannot be loaded.
void loadExtension(const std::filesystem::path& library);

} // namespace device
