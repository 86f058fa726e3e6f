// Where a desktop keeps the descriptions of its applications.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace desktop {

/// The user's own data directory, then the machine's, in the order in which they count.
std::vector<std::filesystem::path> dataDirectories();

/// The files that describe applications, by identifier: the file's name without its ending, after the names
/// of the folders that it lies in, joined by dashes. Of several with one identifier the first directory's
/// counts, whatever it is. Links to folders are followed once, so that they lead round in no circle.
std::map<std::string, std::filesystem::path>
findDesktopFiles(const std::vector<std::filesystem::path>& dataDirectories);

} // namespace desktop
