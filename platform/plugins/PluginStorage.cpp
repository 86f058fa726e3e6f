#include "platform/plugins/PluginStorage.h"

#include "platform/foundation/FileManager.h"

#include <algorithm>

namespace plugins {

namespace {

constexpr const char* parentDirectory = "/var/mobile/Library/Vela/PluginData/";
constexpr std::size_t longestName = 200; // bytes

bool isPlain(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
}

bool isControl(unsigned char c) {
    return c < 0x20 || c == 0x7F;
}

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

PluginStorage::PluginStorage(const std::string& identifier) : directory_(directoryFor(identifier)) {}

std::string PluginStorage::directoryFor(const std::string& identifier) {
    constexpr const char* digits = "0123456789abcdef";
    std::string name;
    for (const char character : identifier) {
        const auto c = static_cast<unsigned char>(character);
        if (isPlain(c) || (c == '.' && !name.empty()))
            name += character;
        else
            name.append({'%', digits[c >> 4], digits[c & 15]});
    }
    return parentDirectory + name;
}

std::optional<std::string> PluginStorage::pathOf(std::string_view name) const {
    if (name.empty() || name.size() > longestName || name.front() == '.' ||
        name.find('/') != std::string_view::npos || std::any_of(name.begin(), name.end(), isControl))
        return std::nullopt;
    return directory_ + "/" + std::string(name);
}

std::optional<std::string> PluginStorage::read(std::string_view name) const {
    const auto path = pathOf(name);
    const auto bytes = path ? foundation::FileManager::shared().read(*path, largestFile) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    return std::string(bytes->begin(), bytes->end());
}

bool PluginStorage::write(std::string_view name, std::string_view contents) {
    const auto path = pathOf(name);
    const auto& files = foundation::FileManager::shared();
    return path && contents.size() <= largestFile && files.createDirectories(directory_) &&
           files.writeAtomically(*path, bytesOf(contents));
}

bool PluginStorage::remove(std::string_view name) {
    const auto path = pathOf(name);
    return path && foundation::FileManager::shared().removeFile(*path);
}

std::vector<std::string> PluginStorage::names() const {
    auto found = foundation::FileManager::shared().contentsOfDirectory(directory_);
    if (!found)
        return {};
    std::erase_if(*found, [this](const std::string& name) { return !pathOf(name); });
    std::sort(found->begin(), found->end());
    return std::move(*found);
}

} // namespace plugins
