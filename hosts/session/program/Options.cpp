#include "hosts/session/program/Options.h"

#include <functional>
#include <map>

namespace session {

namespace {

Side sideOf(const std::string& text) {
    if (const auto side = sideNamed(text))
        return *side;
    throw OptionsError("a side is left or right, not \"" + text + "\"");
}

void request(Options& options, Options::Request wanted) {
    if (options.request != Options::Request::None)
        throw OptionsError("one request at a time");
    options.request = wanted;
}

std::string notEmpty(const std::string& option, const std::string& value) {
    if (value.empty())
        throw OptionsError(option + " lacks its value");
    return value;
}

using Switch = std::function<void(Options&)>;
using Setting = std::function<void(Options&, const std::string& value)>;

const std::map<std::string, Switch>& switches() {
    static const auto& table = *new std::map<std::string, Switch>{
        {"--help", [](Options& options) { options.help = true; }},
        {"-h", [](Options& options) { options.help = true; }},
        {"--version", [](Options& options) { options.version = true; }},
        {"--dismiss", [](Options& options) { request(options, Options::Request::Dismiss); }},
        {"--state", [](Options& options) { request(options, Options::Request::DescribeState); }},
        {"--no-supervisor", [](Options& options) { options.supervise = false; }},
        {"--no-plugins", [](Options& options) { options.bringPlugins = false; }},
    };
    return table;
}

const std::map<std::string, Setting>& settings() {
    static const auto& table = *new std::map<std::string, Setting>{
        {"--show",
         [](Options& options, const std::string& value) {
             request(options, Options::Request::Show);
             options.side = sideOf(value);
         }},
        {"--toggle",
         [](Options& options, const std::string& value) {
             request(options, Options::Request::Toggle);
             options.side = sideOf(value);
         }},
        {"--root",
         [](Options& options, const std::string& value) { options.root = notEmpty("--root", value); }},
        {"--extension", [](Options& options,
                           const std::string& value) { options.extension = notEmpty("--extension", value); }},
        {"--output",
         [](Options& options, const std::string& value) { options.output = notEmpty("--output", value); }},
        {"--model",
         [](Options& options, const std::string& value) {
             if (value != "iPhone" && value != "iPad")
                 throw OptionsError("a model is iPhone or iPad, not \"" + value + "\"");
             options.model = value;
         }},
    };
    return table;
}

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (const auto found = switches().find(argument); found != switches().end()) {
            found->second(options);
        } else if (const auto setting = settings().find(argument); setting != settings().end()) {
            if (i + 1 == arguments.size())
                throw OptionsError(argument + " lacks its value");
            setting->second(options, arguments[++i]);
        } else {
            throw OptionsError("unknown option " + argument);
        }
    }
    return options;
}

std::string Options::helpText() {
    return "Usage: vela-session [OPTION…]\n"
           "Two panels that slide in over the applications of a Wayland session.\n"
           "\n"
           "Without a request, becomes the session's host and stays:\n"
           "  --output NAME     show the panels on this output (default: the device's own, or the first)\n"
           "  --root DIR        the device root (default: below the user's data directory)\n"
           "  --extension FILE  another library than the installed Vela3.dylib\n"
           "  --model MODEL     iPhone (default) or iPad\n"
           "  --no-plugins      do not bring the plug-ins that come along to a new device root\n"
           "  --no-supervisor   do not start again after a crash\n"
           "\n"
           "Requests, to the host that is running:\n"
           "  --show SIDE       call the left or right panel\n"
           "  --toggle SIDE     call it, or send it away when it is shown\n"
           "  --dismiss         send away whichever is shown\n"
           "  --state           print what is shown, as JSON\n"
           "\n"
           "  -h, --help        print this\n"
           "  --version         print the version\n";
}

} // namespace session
