// A plug-in's bundle: a directory of the device with a property list "Info.plist" and an executable.
//
// Keys: "CFBundleIdentifier", "CFBundleExecutable" (a path within the bundle), "NSPrincipalClass" and
// "VelaPluginABI", the number of the contract that the executable was built for. Nothing of the executable
// runs unless that number is this phone's. What is once loaded is never unloaded. Main thread only.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <memory>
#include <string>

namespace plugins {

struct BundleInformation;

class Bundle {
public:
    /// The bundle in the directory at a device path, with its executable loaded; null when it cannot be
    /// opened, or has been disabled after a crash.
    static std::shared_ptr<Bundle> open(const std::string& devicePath);

    ~Bundle();
    const std::string& identifier() const;

    /// A new view of the principal class, with a zero frame. It responds to exactly those of the optional
    /// methods that the plug-in has. Null when there is no usable principal class.
    std::shared_ptr<toolkit::UIView> makePrincipalView();

private:
    Bundle(std::unique_ptr<BundleInformation> information, void* library);

    std::unique_ptr<BundleInformation> information_;
    void* library_; // as of dlopen, never closed
};

} // namespace plugins
