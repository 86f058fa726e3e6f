#include "hosts/lyrics-gateway/GatewayOptions.h"

#include <charconv>

namespace gateway {

namespace {

constexpr int greatestPort = 65535;

int portOf(const std::string& text) {
    int port = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, port);
    if (result.ec != std::errc() || result.ptr != end || port < 0 || port > greatestPort)
        throw GatewayOptionsError("--port: \"" + text + "\" is no port from 0 to 65535");
    return port;
}

std::string serviceOf(std::string text) {
    if (!text.empty() && !text.starts_with("http://") && !text.starts_with("https://"))
        throw GatewayOptionsError("--service: \"" + text + "\" is no address of the scheme http or https");
    while (text.ends_with('/'))
        text.pop_back();
    return text;
}

void take(const std::string& option, const std::string& value, GatewayOptions& options) {
    if (option == "--port") {
        options.port = portOf(value);
    } else if (option == "--service") {
        options.service = serviceOf(value);
    } else if (option == "--directory") {
        if (value.empty())
            throw GatewayOptionsError("--directory: the path is empty");
        options.directories.emplace_back(value);
    } else {
        throw GatewayOptionsError("there is no option \"" + option + "\"");
    }
}

} // namespace

GatewayOptions GatewayOptions::parse(const std::vector<std::string>& arguments) {
    GatewayOptions options;
    for (std::size_t next = 0; next < arguments.size(); ++next) {
        const std::string& argument = arguments[next];
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            continue;
        }
        // Both "--port 80" and "--port=80".
        const std::size_t equals = argument.find('=');
        if (equals != std::string::npos)
            take(argument.substr(0, equals), argument.substr(equals + 1), options);
        else if (next + 1 < arguments.size())
            take(argument, arguments[++next], options);
        else
            throw GatewayOptionsError(argument.starts_with("--") ? argument + " lacks a value"
                                                                 : "\"" + argument + "\" is no option");
    }
    return options;
}

std::string GatewayOptions::helpText() {
    return R"(Usage: vela-lyrics-gateway [OPTION]...

Serves lyrics to this machine (127.0.0.1 only), as pages of the form that the music panel reads: from text files
first, then from an open lyrics service on the network.

  --port PORT       where to listen (default: 47621; 0: any free port, which is printed)
  --directory DIR   a directory of text files, "ARTIST - TITLE.txt" or, with time tags, "ARTIST - TITLE.lrc";
                    may be given several times (default: none)
  --service URL     base address of the lyrics service (default: https://lrclib.net); empty for none
  --help            show this and exit

It runs until it is interrupted. The exit code is 0 then, 2 when an option is at fault, and 3 when the port is
in use.
)";
}

} // namespace gateway
