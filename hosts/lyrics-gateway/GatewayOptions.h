// The command line of vela-lyrics-gateway.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace gateway {

struct GatewayOptions {
    static constexpr int usualPort = 47621;

    bool help = false;
    int port = usualPort; // 0 for any that is free
    /// Where text files of lyrics lie, in the order in which they are looked at.
    std::vector<std::filesystem::path> directories;
    /// Base address of the lyrics service; empty for none.
    std::string service = "https://lrclib.net";

    /// Throws GatewayOptionsError for anything that is no complete and sensible command line.
    static GatewayOptions parse(const std::vector<std::string>& arguments);
    static std::string helpText();
};

class GatewayOptionsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace gateway
