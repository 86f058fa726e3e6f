#include "hosts/desktop/DesktopFiles.h"

#include <algorithm>
#include <set>
#include <string_view>

#include <glib.h>

namespace desktop {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view ending = ".desktop";
constexpr int deepestFolder = 8;
/// Far more than any machine has; whoever makes more keeps nobody busy for long.
constexpr int mostEntries = 20'000; // files and folders of one search

/// Whether it can stand as a name in lists and files.
bool isIdentifier(const std::string& name) {
    const auto isControl = [](unsigned char byte) { return byte < ' ' || byte == 0x7F; };
    return g_utf8_validate(name.data(), static_cast<gssize>(name.size()), nullptr) &&
           std::none_of(name.begin(), name.end(), isControl);
}

class Search {
public:
    explicit Search(std::map<std::string, fs::path>& found) : found_(found) {}

    void visit(const fs::path& folder, const std::string& prefix, int depth) {
        std::error_code error;
        const fs::path real = fs::canonical(folder, error);
        if (error || depth > deepestFolder || !visited_.insert(real).second)
            return;
        for (const fs::path& entry : entriesOf(folder)) {
            const std::string name = entry.filename();
            if (fs::is_directory(entry, error))
                visit(entry, prefix + name + "-", depth + 1);
            else if (name.ends_with(ending) && name.size() > ending.size() && isIdentifier(prefix + name))
                found_.emplace(prefix + name.substr(0, name.size() - ending.size()), entry);
        }
    }

private:
    /// In order, so that every search finds the same.
    std::vector<fs::path> entriesOf(const fs::path& folder) {
        std::vector<fs::path> entries;
        std::error_code error;
        for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error))
            if (++entries_ <= mostEntries)
                entries.push_back(each->path());
            else
                break;
        std::sort(entries.begin(), entries.end());
        return entries;
    }

    std::map<std::string, fs::path>& found_;
    std::set<fs::path> visited_;
    int entries_ = 0;
};

} // namespace

std::vector<fs::path> dataDirectories() {
    std::vector<fs::path> directories{g_get_user_data_dir()};
    for (const char* const* each = g_get_system_data_dirs(); *each; ++each)
        directories.emplace_back(*each);
    return directories;
}

std::map<std::string, fs::path> findDesktopFiles(const std::vector<fs::path>& dataDirectories) {
    std::map<std::string, fs::path> found;
    Search search(found);
    for (const fs::path& directory : dataDirectories)
        if (directory.is_absolute())
            search.visit(directory / "applications", "", 0);
    return found;
}

} // namespace desktop
