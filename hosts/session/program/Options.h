// The command line of vela-session.
#pragma once

#include "hosts/session/homescreen/Panels.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace session {

struct Options {
    /// What to ask of the session host that is running, instead of being one.
    enum class Request { None, Show, Toggle, Dismiss, DescribeState };

    bool help = false;
    bool version = false;
    Request request = Request::None;
    Side side = Side::Right;
    bool supervise = true;
    bool bringPlugins = true;
    std::optional<std::filesystem::path> root;
    std::optional<std::filesystem::path> extension;
    std::string output; // the name of an output; empty for the device's own, or the first
    std::string model = "iPhone";

    /// Throws OptionsError for anything that is no sensible command line.
    static Options parse(const std::vector<std::string>& arguments);
    static std::string helpText();
};

class OptionsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace session
