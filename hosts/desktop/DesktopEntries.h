// The applications that are installed on this machine, as their desktop entries describe them.
//
// Looks at the directories every time, so what was installed a moment ago is there; only files that have
// changed are read again. Main thread only.
#pragma once

#include "hosts/desktop/DesktopEntry.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace desktop {

class DesktopEntries {
public:
    /// Those of the user's session.
    DesktopEntries();
    /// Those in these data directories, of which the first counts most.
    explicit DesktopEntries(std::vector<std::filesystem::path> dataDirectories);

    /// The applications that this desktop offers its user, in the order of their identifiers.
    std::vector<DesktopEntry> listed() const;
    /// The entry of that identifier, or else one that differs from it in capitals alone.
    std::optional<DesktopEntry> find(const std::string& identifier) const;
    /// The entry of the application whose windows call themselves so: by the entry's identifier, as they
    /// should, or by what the entry says that they do.
    std::optional<DesktopEntry> findByWindow(const std::string& name) const;

private:
    using Files = std::map<std::string, std::filesystem::path>;
    struct Known {
        std::filesystem::path file;
        std::filesystem::file_time_type changed;
        std::uintmax_t size = 0;
        std::optional<DesktopEntry> entry;
    };

    std::optional<DesktopEntry> read(const Files::value_type& found) const;
    std::vector<DesktopEntry> readAll() const;

    std::vector<std::filesystem::path> dataDirectories_;
    mutable std::map<std::string, Known> known_; // by identifier
};

} // namespace desktop
