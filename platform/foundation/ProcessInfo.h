// What this process is: the main bundle's identifier, the system version, the device's model.
//
// A host sets these once, before it loads any extension. Main thread only.
#pragma once

#include <string>

namespace foundation {

class ProcessInfo {
public:
    static ProcessInfo& shared();

    /// "com.apple.springboard" in the home-screen process; empty at first.
    std::string mainBundleIdentifier;
    /// "9.3", "10.2.1".
    std::string systemVersion = "9.3";
    /// "iPhone", "iPad".
    std::string deviceModel = "iPhone";
};

/// Compares dotted version numbers field by field as numbers: below 0, 0 or above 0, like strcmp.
/// "9.3" is less than "9.3.3", "10.0" more than "9.3".
int compareVersionsNumerically(const std::string& a, const std::string& b);

} // namespace foundation
