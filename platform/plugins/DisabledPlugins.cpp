#include "platform/plugins/DisabledPlugins.h"

#include "platform/foundation/FileManager.h"

namespace plugins {

namespace {

constexpr std::size_t largestNote = 4096; // bytes

/// Identifiers, each with a true value.
foundation::PropertyList::Dictionary readList() {
    return foundation::FileManager::shared()
        .readDictionary(disabledListPath)
        .value_or(foundation::PropertyList::Dictionary());
}

bool writeList(const foundation::PropertyList::Dictionary& list) {
    auto& files = foundation::FileManager::shared();
    return files.createDirectories(stateDirectory) && files.writeDictionaryAtomically(disabledListPath, list);
}

} // namespace

bool isDisabled(const std::string& identifier) {
    const auto list = foundation::FileManager::shared().sharedDictionary(disabledListPath);
    if (!list)
        return false;
    const auto found = list->find(identifier);
    return found != list->end() && found->second.boolValue();
}

bool enable(const std::string& identifier) {
    auto list = readList();
    return list.erase(identifier) == 0 || writeList(list);
}

std::optional<std::string> takeNoteOfCrash() {
    auto& files = foundation::FileManager::shared();
    const auto note = files.read(crashNotePath, largestNote);
    if (!note)
        return std::nullopt;
    const std::string identifier(note->begin(), note->end());
    if (!identifier.empty()) {
        auto list = readList();
        list.insert_or_assign(identifier, true);
        writeList(list);
    }
    files.removeFile(crashNotePath);
    if (identifier.empty())
        return std::nullopt;
    return identifier;
}

} // namespace plugins
