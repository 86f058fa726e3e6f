// The device's files. Every path is a device path ("/var/mobile/…") and is resolved below the device root.
//
// No path leaves the root: "..", NUL bytes and symbolic links on the way make a path a missing one, whatever
// name a song or a plug-in gave it. Any thread; the root is set once, before anything is read.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace foundation {

class FileManager {
public:
    static FileManager& shared();

    /// The real directory that stands for the device's "/". It is made, with its parents, when it is missing;
    /// answers false when it cannot be made or is no directory.
    bool setDeviceRoot(const std::filesystem::path& root);
    const std::filesystem::path& deviceRoot() const { return root_; }
    /// Where a device path lies on the real disk, for libraries that open files themselves; nothing for a
    /// path that would leave the root.
    std::optional<std::filesystem::path> realPath(const std::string& devicePath) const;

    /// Whether anything but a symbolic link stands there, a file or a directory.
    bool fileExists(const std::string& devicePath) const;
    bool directoryExists(const std::string& devicePath) const;
    /// Makes one directory; its parent must exist. False when it exists already or cannot be made.
    bool createDirectory(const std::string& devicePath) const;
    /// Makes a directory and its missing parents. True when it stands afterwards.
    bool createDirectories(const std::string& devicePath) const;
    /// Names of the immediate entries in the file system's own order, without ".", ".." and what a killed
    /// process left half written; nothing when it cannot be listed.
    std::optional<std::vector<std::string>> contentsOfDirectory(const std::string& devicePath) const;
    /// The whole regular file, or nothing when it is missing, unreadable, no regular file or larger than
    /// `maximumBytes`.
    std::optional<std::vector<std::uint8_t>> read(const std::string& devicePath,
                                                  std::size_t maximumBytes = 256 * 1024 * 1024) const;
    /// Writes a whole file so that a reader, a crash or a kill sees the old file or the new one, never a
    /// part: to a new name beside it, synced, then renamed over it. False when anything fails, the old file
    /// standing.
    bool writeAtomically(const std::string& devicePath, std::span<const std::uint8_t> bytes) const;
    /// Removes what is no directory. True when it stood there and is gone.
    bool removeFile(const std::string& devicePath) const;

    /// A property-list file whose top level is a dictionary; nothing otherwise, and for one larger than
    /// `maximumBytes`.
    std::optional<PropertyList::Dictionary> readDictionary(const std::string& devicePath,
                                                           std::size_t maximumBytes = 64 * 1024 * 1024) const;
    /// The same for a small file that is read again and again: bytes that were decoded before are not decoded
    /// again. Null when there is no dictionary, or a file of more than a megabyte.
    std::shared_ptr<const PropertyList::Dictionary> sharedDictionary(const std::string& devicePath) const;
    /// False, the old file standing, also for a dictionary that is too large to be read back.
    bool writeDictionaryAtomically(const std::string& devicePath,
                                   const PropertyList::Dictionary& value) const;

private:
    std::filesystem::path root_;
};

} // namespace foundation
