// The installed applications.
#pragma once

#include "platform/homescreen/SBApplication.h"

#include <memory>
#include <optional>
#include <string>

namespace homescreen {

class SBApplicationController : public runtime::Object {
    RUNTIME_CLASS()
public:
    static SBApplicationController& sharedInstance();
    /// Null for an application that is not installed.
    std::shared_ptr<SBApplication> applicationWithBundleIdentifier(const std::string& bundleIdentifier) const;
    /// The name under an application's icon; nothing for one that is not installed.
    std::optional<std::string> displayName(const std::string& bundleIdentifier) const;
};

} // namespace homescreen
