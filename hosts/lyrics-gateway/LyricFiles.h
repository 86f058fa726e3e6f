// Lyrics in directories of text files: "ARTIST - TITLE.txt", or "ARTIST - TITLE.lrc" with time tags.
//
// Upper and lower case count as one, and "_" stands for a "/" in a name. Directories are read anew for each
// song, and no name that somebody asks for is ever part of a path. Any thread.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace gateway {

class LyricFiles {
public:
    explicit LyricFiles(std::vector<std::filesystem::path> directories)
        : directories_(std::move(directories)) {}

    /// The text without time tags; nothing when no file holds one.
    std::optional<std::string> find(const std::string& artist, const std::string& title) const;

    static constexpr std::size_t largestFile = 1024 * 1024; // bytes

private:
    std::vector<std::filesystem::path> directories_;
};

} // namespace gateway
