// An application that is installed on this machine, as its desktop entry describes it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace desktop {

struct DesktopEntry {
    std::string identifier;  // what the entry is called, without ".desktop"
    std::string name;        // in the user's language
    std::string icon;        // a name in the icon theme or the path of a file; empty when it has none
    std::string windowClass; // what its windows say that they are called; usually empty
    bool isListed = true;    // among the applications that this desktop offers
};

/// Nothing for a file that describes no application or one that is deleted, whose program is missing, or that
/// is no plain file of a sensible size.
std::optional<DesktopEntry> readDesktopEntry(const std::string& identifier,
                                             const std::filesystem::path& file);

} // namespace desktop
