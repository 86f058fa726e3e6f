// Tells when a file of the device has been written or removed, by whomever.
#pragma once

#include "platform/foundation/Handle.h"

#include <gio/gio.h>

#include <functional>
#include <string>

namespace settings {

class FileWatch {
public:
    /// `changed` is called on the main loop, shortly after the file at this device path has changed.
    FileWatch(const std::string& devicePath, std::function<void()> changed);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

private:
    void tellSoon();

    GFileMonitor* monitor_ = nullptr;
    std::function<void()> changed_;
    foundation::Handle timer_;
};

} // namespace settings
