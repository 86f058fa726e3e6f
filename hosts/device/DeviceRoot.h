// The directory that is the device's disk: chosen, made, filled from the project's resources.
//
// In a root that exists already only what is wholly missing is added: a file or a plug-in folder that is
// there stays as it is.
#pragma once

#include <filesystem>
#include <optional>

namespace device {

class DeviceRoot {
public:
    /// The user's own device, below the XDG data directory.
    static std::filesystem::path userRoot();

    /// Makes `path` the device root, or a fresh temporary directory, which goes when this object goes. A
    /// process that has been started after a crash takes over the temporary directory `former` instead.
    /// Throws ProgramError when it cannot be made or written.
    explicit DeviceRoot(const std::optional<std::filesystem::path>& path,
                        const std::optional<std::filesystem::path>& former = std::nullopt);
    ~DeviceRoot();
    DeviceRoot(const DeviceRoot&) = delete;
    DeviceRoot& operator=(const DeviceRoot&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Adds what of `device`, which mirrors a device's disk, is missing. That it is not there is reported on
    /// standard error.
    void fill(const std::filesystem::path& device) const;

private:
    std::filesystem::path path_;
    bool temporary_;
};

} // namespace device
