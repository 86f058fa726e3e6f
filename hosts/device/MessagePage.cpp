#include "hosts/device/MessagePage.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/PercentEncoding.h"

namespace device {

namespace {

constexpr const char* configurationPath = "/Library/Application Support/Vela/configuration.plist";
constexpr const char* socialHostKey = "Social web host";
constexpr const char* composePage = "/intent/tweet?text=";

} // namespace

std::optional<std::string> messagePage(const std::string& message) {
    const auto configuration = foundation::FileManager::shared().readDictionary(configurationPath);
    if (!configuration)
        return std::nullopt;
    const auto host = configuration->find(socialHostKey);
    if (host == configuration->end() || !host->second.string())
        return std::nullopt;
    return *host->second.string() + composePage +
           foundation::percentEncoded(message, foundation::unreservedPunctuation);
}

} // namespace device
