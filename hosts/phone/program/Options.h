// The command line of vela-phone.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/toolkit/geometry/Geometry.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace phone {

struct Options {
    struct Preference {
        std::string key;
        foundation::PropertyList value; // nil takes the key away
    };

    bool help = false;
    bool version = false;
    bool headless = false;
    /// The window stays open after a script's end.
    bool keepOpen = false;
    bool loadExtension = true;
    bool bringPlugins = true;
    std::optional<std::filesystem::path> extension;
    std::optional<std::filesystem::path> script;
    std::filesystem::path outputDirectory = ".";
    std::optional<std::filesystem::path> root;
    std::optional<std::filesystem::path> musicDirectory;
    toolkit::Size screenSize{375, 667}; // points
    double screenScale = 2;             // pixels a point
    std::string model = "iPhone";
    std::string systemVersion = "9.3";
    /// Set when a plug-in has crashed the phone, which had this device root and has been started again. For
    /// the program's own use.
    std::optional<std::filesystem::path> afterCrash;
    /// The command line, but for --after-crash.
    std::vector<std::string> arguments;
    /// Preferences to write instead of starting the phone.
    std::vector<Preference> preferences;

    /// Throws OptionsError for anything that is no complete and sensible command line.
    static Options parse(const std::vector<std::string>& arguments);
    static std::string helpText();
};

class OptionsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace phone
