#include "hosts/desktop/DesktopEntries.h"

#include "hosts/desktop/DesktopFiles.h"

#include <algorithm>
#include <string_view>

#include <glib.h>

namespace desktop {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view ending = ".desktop";

bool equalsBesidesCapitals(const std::string& one, const std::string& other) {
    return g_ascii_strcasecmp(one.c_str(), other.c_str()) == 0;
}

} // namespace

DesktopEntries::DesktopEntries() : DesktopEntries(desktop::dataDirectories()) {}

DesktopEntries::DesktopEntries(std::vector<fs::path> dataDirectories)
    : dataDirectories_(std::move(dataDirectories)) {}

std::optional<DesktopEntry> DesktopEntries::read(const Files::value_type& found) const {
    const auto& [identifier, file] = found;
    std::error_code error;
    const auto changed = fs::last_write_time(file, error);
    const auto size = error ? 0 : fs::file_size(file, error);
    if (error)
        return std::nullopt;
    Known& known = known_[identifier];
    if (known.file != file || known.changed != changed || known.size != size)
        known = {file, changed, size, readDesktopEntry(identifier, file)};
    return known.entry;
}

std::vector<DesktopEntry> DesktopEntries::readAll() const {
    const Files files = findDesktopFiles(dataDirectories_);
    std::vector<DesktopEntry> entries;
    for (const auto& file : files)
        if (auto entry = read(file))
            entries.push_back(std::move(*entry));
    std::erase_if(known_, [&files](const auto& known) { return !files.contains(known.first); });
    return entries;
}

std::vector<DesktopEntry> DesktopEntries::listed() const {
    auto entries = readAll();
    std::erase_if(entries, [](const DesktopEntry& entry) { return !entry.isListed; });
    return entries;
}

std::optional<DesktopEntry> DesktopEntries::find(const std::string& identifier) const {
    const Files files = findDesktopFiles(dataDirectories_);
    if (const auto found = files.find(identifier); found != files.end())
        if (auto entry = read(*found))
            return entry;
    for (const auto& file : files)
        if (equalsBesidesCapitals(file.first, identifier))
            if (auto entry = read(file))
                return entry;
    return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntries::findByWindow(const std::string& name) const {
    const std::string identifier =
        name.ends_with(ending) ? name.substr(0, name.size() - ending.size()) : name;
    if (auto entry = find(identifier))
        return entry;
    std::optional<DesktopEntry> found;
    for (auto& entry : readAll())
        // Of several the one that its user knows: helpers of an application share its windows' name.
        if (equalsBesidesCapitals(entry.windowClass, name) &&
            (!found || (entry.isListed && !found->isListed)))
            found = std::move(entry);
    return found;
}

} // namespace desktop
