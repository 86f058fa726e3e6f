// The audio files below directories.
//
// Symbolic links are followed, as people link their music from other disks; a directory is visited once,
// however many links lead to it. What is hidden or cannot be read is left out. Any thread, one walk at a
// time.
#pragma once

#include "hosts/media/library/MusicFile.h"

#include "platform/foundation/FileDescriptor.h"

#include <atomic>
#include <filesystem>
#include <set>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace playback {

class DirectoryWalk {
public:
    /// Ends early when `cancelled` becomes true.
    explicit DirectoryWalk(const std::atomic<bool>& cancelled) : cancelled_(cancelled) {}

    /// Adds the files below the directory, but those in directories that were visited before.
    void visit(const std::filesystem::path& directory);
    std::vector<MusicFile>& files() { return files_; }

private:
    void visit(const foundation::FileDescriptor& directory, const std::string& path, int depth);
    void visitEntry(const foundation::FileDescriptor& directory, const std::string& path, const char* name,
                    int depth);

    const std::atomic<bool>& cancelled_;
    std::set<std::pair<dev_t, ino_t>> visited_;
    std::vector<MusicFile> files_;
};

} // namespace playback
