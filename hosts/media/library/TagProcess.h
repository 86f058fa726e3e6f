// Reads tags in a process of its own, which may crash, hang or want too much memory over a hostile file: that
// file is no song then, and the next one gets another process.
//
// One thread. The process ends with the object.
#pragma once

#include "hosts/media/library/SongTags.h"
#include "platform/foundation/FileDescriptor.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace playback {

class TagProcess {
public:
    static constexpr const char* programName = "vela-tag-reader";

    /// Uses the program that comes with the running one; without it tags are read in this process.
    TagProcess();
    TagProcess(const TagProcess&) = delete;
    TagProcess& operator=(const TagProcess&) = delete;
    ~TagProcess();

    /// Nothing for a file that holds no sound, and for one that the process did not survive.
    std::optional<SongTags> read(const std::filesystem::path& file);

private:
    bool start();
    void end();
    bool send(const std::filesystem::path& file);
    bool receive(std::vector<std::uint8_t>& answer);
    bool receive(std::uint8_t* bytes, std::size_t count);

    std::filesystem::path program_;
    int process_ = 0;
    foundation::FileDescriptor socket_;
};

} // namespace playback
