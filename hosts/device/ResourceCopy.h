// Brings the project's resources to the device's disk, where they are missing.
//
// Everything is copied aside first, brought to the disk at once, and then renamed into its place: whatever
// moment the process is killed at, a file or plug-in folder in its place is whole. There must be a device
// root.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace device {

class ResourceCopy {
public:
    enum class Durability { None, Synced };

    /// `source` mirrors the device's disk.
    explicit ResourceCopy(std::filesystem::path source) : source_(std::move(source)) {}

    /// Adds files that are not there; plug-in folders whole or not at all. What stands in the way stays.
    /// Throws ProgramError when something cannot be added.
    void addMissing(Durability durability);

private:
    struct Addition {
        std::filesystem::path aside;
        std::filesystem::path target;
    };
    void collect(const std::filesystem::path& source, const std::string& devicePath);
    void copyAside(const std::filesystem::path& source, const std::string& devicePath);
    void makeDirectory(const std::filesystem::path& source, const std::string& devicePath);
    void moveIntoPlace() const;

    std::filesystem::path source_;
    std::filesystem::path asideDirectory_;
    std::vector<Addition> additions_;
};

} // namespace device
