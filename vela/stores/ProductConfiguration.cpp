#include "vela/stores/ProductConfiguration.h"

#include "platform/foundation/FileManager.h"
#include "vela/stores/Paths.h"

namespace vela {

namespace {

std::string address(const char* key) {
    const auto entries = foundation::FileManager::shared().sharedDictionary(paths::configuration);
    if (!entries)
        return {};
    const auto found = entries->find(key);
    const std::string* text = found == entries->end() ? nullptr : found->second.string();
    return text ? *text : std::string();
}

std::string baseAddress(const char* key) {
    std::string base = address(key);
    while (base.ends_with('/'))
        base.pop_back();
    return base;
}

} // namespace

const ProductConfiguration& ProductConfiguration::shared() {
    static const auto& configuration = *new ProductConfiguration; // never torn down
    return configuration;
}

std::string ProductConfiguration::lyrics() const {
    return baseAddress("Lyrics");
}

std::string ProductConfiguration::catalogue() const {
    return baseAddress("Catalogue");
}

std::string ProductConfiguration::socialWebHost() const {
    return baseAddress("Social web host");
}

std::string ProductConfiguration::developerTutorial() const {
    return address("Developer tutorial");
}

std::string ProductConfiguration::tutorialVideo() const {
    return address("Tutorial video");
}

} // namespace vela
