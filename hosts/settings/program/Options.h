// The command line of vela-settings.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace settings {

struct Options {
    enum class Action { Window, List, Get, Set, Help, Version };
    /// Whose applications the pages list: the simulated phone's, or those of the desktop around.
    enum class Applications { Phone, Desktop };

    Action action = Action::Window;
    Applications applications = Applications::Phone;
    std::string key;   // of Get and Set
    std::string value; // of Set
    std::optional<std::filesystem::path> root;
    std::optional<std::filesystem::path> extension;

    /// Throws OptionsError for anything that is no complete and sensible command line.
    static Options parse(const std::vector<std::string>& arguments);
    static std::string helpText();
};

class OptionsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace settings
