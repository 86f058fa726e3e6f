#include "hosts/device/ExtensionLoader.h"

#include "hosts/device/ProgramError.h"

#include <dlfcn.h>

namespace device {

void loadExtension(const std::filesystem::path& library) {
    // An absolute name is looked for nowhere else.
    std::error_code error;
    const auto absolute = std::filesystem::absolute(library, error);
    if (!std::filesystem::exists(absolute, error))
        throw ProgramError("there is no extension " + library.string() +
                           " (--no-extension starts without one)");
    if (!dlopen(absolute.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        const char* reason = dlerror();
        throw ProgramError(
            "the extension cannot be loaded: " + std::string(reason ? reason : library.string()) +
            " (--no-extension starts without one)");
    }
}

} // namespace device
