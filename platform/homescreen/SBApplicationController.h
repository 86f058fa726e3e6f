// The installed applications.
#pragma once

#include "platform/runtime/Class.h"

#include <optional>
#include <string>

namespace homescreen {

class SBApplicationController : public runtime::Object {
    RUNTIME_CLASS()
public:
    static SBApplicationController& sharedInstance();
    /// The name under an application's icon; nothing for one that is not installed.
    std::optional<std::string> displayName(const std::string& bundleIdentifier) const;
};

} // namespace homescreen
