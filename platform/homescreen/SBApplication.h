// An application as the home screen knows it.
#pragma once

#include "platform/runtime/Class.h"

#include <cstdint>
#include <string>

namespace homescreen {

class SBApplication : public runtime::Object {
    RUNTIME_CLASS()
public:
    SBApplication(std::string bundleIdentifier, std::string displayName)
        : bundleIdentifier_(std::move(bundleIdentifier)), displayName_(std::move(displayName)) {}

    const std::string& bundleIdentifier() const { return bundleIdentifier_; }
    const std::string& displayName() const { return displayName_; }
    /// Interface orientation (1 to 4) that its status bar has.
    std::int64_t statusBarOrientation() const { return statusBarOrientation_; }
    void setStatusBarOrientation(std::int64_t orientation) { statusBarOrientation_ = orientation; }

private:
    std::string answerBundleIdentifier() { return bundleIdentifier_; }
    std::string answerDisplayName() { return displayName_; }
    std::int64_t answerStatusBarOrientation() { return statusBarOrientation_; }

    std::string bundleIdentifier_;
    std::string displayName_;
    std::int64_t statusBarOrientation_ = 1;
};

} // namespace homescreen
