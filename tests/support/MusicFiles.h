// Audio files for tests, made by ffmpeg: a second or more of a tone, with tags.
#pragma once

#include "tests/support/ChildProcess.h"

#include <filesystem>
#include <map>
#include <string>

namespace support {

struct MusicFile {
    double seconds = 1;
    std::map<std::string, std::string> tags{}; // by ffmpeg's names: "title", "artist", "album", "track", …
    std::filesystem::path cover{};             // a picture's file; none when empty
    std::vector<std::string> options{};        // further ones of ffmpeg's, for the output
};

/// Writes the file; its suffix says of which kind it is. Throws when ffmpeg fails.
inline void makeMusicFile(const std::filesystem::path& path, const MusicFile& file = {}) {
    std::vector<std::string> command{"/usr/bin/ffmpeg", "-nostdin", "-y",
                                     "-loglevel",       "error",    "-f",
                                     "lavfi",           "-i",       "sine=frequency=440:sample_rate=44100"};
    if (!file.cover.empty())
        command.insert(command.end(), {"-i", file.cover, "-map", "0:a", "-map", "1:v", "-c:v", "copy",
                                       "-disposition:v", "attached_pic"});
    command.insert(command.end(), {"-t", std::to_string(file.seconds)});
    for (const auto& [name, value] : file.tags)
        command.insert(command.end(), {"-metadata", name + "=" + value});
    command.insert(command.end(), file.options.begin(), file.options.end());
    command.push_back(path);
    const auto made = ChildProcess::run(command);
    if (made.exitCode != 0)
        throw std::runtime_error("ffmpeg: " + made.errors);
}

} // namespace support
