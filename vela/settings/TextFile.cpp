#include "vela/settings/TextFile.h"

#include "platform/foundation/FileManager.h"
#include "platform/toolkit/text/Utf8.h"

namespace vela {

std::optional<std::string> readTextFile(const std::string& devicePath) {
    const auto bytes = foundation::FileManager::shared().read(devicePath, longestTextFile);
    if (!bytes)
        return std::nullopt;
    std::string text(bytes->begin(), bytes->end());
    if (toolkit::wholeUtf8(text, text.size()) != text)
        return std::nullopt;
    return text;
}

} // namespace vela
