#include "hosts/phone/program/Options.h"

#include "hosts/script/PreferenceValue.h"

#include <algorithm>
#include <functional>
#include <map>

namespace phone {

namespace {

constexpr double leastSide = 240;
constexpr double greatestSide = 3000;
constexpr double leastScale = 1;
constexpr double greatestScale = 4;
/// More than any phone or tablet has; a frame of it still fits comfortably into memory.
constexpr double greatestPixelCount = 40'000'000;
constexpr std::size_t longestVersion = 32;

/// Takes the arguments one after the other.
class Arguments {
public:
    explicit Arguments(const std::vector<std::string>& arguments) : arguments_(arguments) {}

    bool atEnd() const { return next_ == arguments_.size(); }
    const std::string& take() { return arguments_[next_++]; }
    const std::string& takeFor(const std::string& option, const std::string& what) {
        if (atEnd())
            throw OptionsError(option + " lacks " + what);
        return take();
    }

private:
    const std::vector<std::string>& arguments_;
    std::size_t next_ = 0;
};

double numberWithin(const std::string& text, const std::string& what, double least, double greatest) {
    const double value = script::parseNumber(text, what);
    if (value < least || value > greatest)
        throw std::invalid_argument(what + " " + text + " is not between " +
                                    std::to_string(static_cast<int>(least)) + " and " +
                                    std::to_string(static_cast<int>(greatest)));
    return value;
}

/// "375x667" or "375x667@2".
void parseScreen(const std::string& text, Options& options) {
    const std::size_t cross = text.find('x');
    const std::size_t at = text.find('@');
    if (cross == std::string::npos || (at != std::string::npos && at < cross))
        throw std::invalid_argument("the screen \"" + text + "\" is not of the form 375x667 or 375x667@2");
    options.screenSize.width =
        numberWithin(text.substr(0, cross), "the screen's width", leastSide, greatestSide);
    options.screenSize.height =
        numberWithin(text.substr(cross + 1, at == std::string::npos ? at : at - cross - 1),
                     "the screen's height", leastSide, greatestSide);
    if (at != std::string::npos)
        options.screenScale =
            numberWithin(text.substr(at + 1), "the screen's scale", leastScale, greatestScale);
    const double pixels =
        options.screenSize.width * options.screenSize.height * options.screenScale * options.screenScale;
    if (pixels > greatestPixelCount)
        throw std::invalid_argument("the screen \"" + text + "\" has too many pixels");
}

void parseModel(const std::string& text, Options& options) {
    if (text != "iPhone" && text != "iPad")
        throw std::invalid_argument("the model \"" + text + "\" is neither iPhone nor iPad");
    options.model = text;
}

/// Numbers with single dots between them.
void parseSystemVersion(const std::string& text, Options& options) {
    bool digitBefore = false;
    bool good = !text.empty() && text.size() <= longestVersion;
    for (const char c : text) {
        const bool digit = c >= '0' && c <= '9';
        good = good && (digit || (c == '.' && digitBefore));
        digitBefore = digit;
    }
    if (!good || !digitBefore)
        throw std::invalid_argument("the system version \"" + text + "\" is no version, like 9.3 or 10.2.1");
    options.systemVersion = text;
}

std::filesystem::path pathOf(const std::string& text) {
    if (text.empty())
        throw std::invalid_argument("the path is empty");
    return text;
}

void takePreference(Arguments& arguments, Options& options) {
    const std::string key = arguments.takeFor("--set", "KEY TYPE VALUE");
    script::checkPreferenceKey(key);
    const std::string type = arguments.takeFor("--set", "TYPE and VALUE");
    if (type == "remove")
        options.preferences.push_back({key, {}});
    else
        options.preferences.push_back(
            {key, script::parsePreferenceValue(type, arguments.takeFor("--set", "VALUE"))});
}

using Flag = void (*)(Options&);
const std::map<std::string, Flag> flags{
    {"--help", [](Options& o) { o.help = true; }},
    {"-h", [](Options& o) { o.help = true; }},
    {"--version", [](Options& o) { o.version = true; }},
    {"--headless", [](Options& o) { o.headless = true; }},
    {"--keep-open", [](Options& o) { o.keepOpen = true; }},
    {"--no-extension", [](Options& o) { o.loadExtension = false; }},
    {"--no-plugins", [](Options& o) { o.bringPlugins = false; }},
};

using Setter = void (*)(const std::string&, Options&);
const std::map<std::string, Setter> settings{
    {"--script", [](const std::string& text, Options& o) { o.script = pathOf(text); }},
    {"--out", [](const std::string& text, Options& o) { o.outputDirectory = pathOf(text); }},
    {"--root", [](const std::string& text, Options& o) { o.root = pathOf(text); }},
    {"--music", [](const std::string& text, Options& o) { o.musicDirectory = pathOf(text); }},
    {"--after-crash", [](const std::string& text, Options& o) { o.afterCrash = pathOf(text); }},
    {"--extension", [](const std::string& text, Options& o) { o.extension = pathOf(text); }},
    {"--screen", parseScreen},
    {"--model", parseModel},
    {"--system-version", parseSystemVersion},
};

void takeOption(const std::string& option, Arguments& arguments, Options& options) {
    if (const auto flag = flags.find(option); flag != flags.end())
        return flag->second(options);
    if (option == "--set")
        return takePreference(arguments, options);
    // Both "--root DIR" and "--root=DIR".
    const std::size_t equals = option.find('=');
    const std::string name = option.substr(0, equals);
    const auto setting = settings.find(name);
    if (setting == settings.end())
        throw OptionsError("there is no option \"" + option + "\"");
    setting->second(equals == std::string::npos ? arguments.takeFor(option, "a value")
                                                : option.substr(equals + 1),
                    options);
}

void checkTogether(const Options& options) {
    if (options.help || options.version)
        return;
    if (!options.preferences.empty() && (options.headless || options.script))
        throw OptionsError("--set writes preferences and exits: it goes with --root alone");
    if (options.headless && !options.script && options.preferences.empty())
        throw OptionsError("--headless needs --script FILE");
    if (options.extension && !options.loadExtension)
        throw OptionsError("--extension and --no-extension contradict each other");
}

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    Options options;
    Arguments rest(arguments);
    while (!rest.atEnd()) {
        const std::string option = rest.take();
        try {
            takeOption(option, rest, options);
        } catch (const std::invalid_argument& error) {
            throw OptionsError(option + ": " + error.what());
        }
    }
    checkTogether(options);
    options.arguments = arguments;
    if (options.afterCrash)
        options.arguments.resize(static_cast<std::size_t>(
            std::find(arguments.begin(), arguments.end(), "--after-crash") - arguments.begin()));
    return options;
}

std::string Options::helpText() {
    return R"(Usage: vela-phone [OPTION]...

Starts a simulated phone with the extension Vela3.dylib loaded: in a window, or, with --headless, on a virtual
clock without a display.

  --headless            play a script without a display, as fast as the machine can
  --script FILE         play a phone script, in the window in real time
  --out DIR             where the script's pictures and states go (default: the current directory)
  --keep-open           keep the window open after the script's end
  --screen WxH[@SCALE]  the screen in points, and pixels a point (default: 375x667@2)
  --model MODEL         iPhone or iPad (default: iPhone)
  --system-version V    the system version that the phone names (default: 9.3)
  --root DIR            the directory that is the device's disk (default: vela3/device in the user's data
                        directory; headless, a temporary one that is removed at the end)
  --music DIR           look for music in this directory (default: the user's own music directory or, when that
                        holds none, a few songs that come with the program; headless, none)
  --extension FILE      load this extension instead of the installed one
  --no-extension        load no extension
  --no-plugins          do not bring the phone's own plug-ins to the device
  --set KEY TYPE VALUE  write a preference, as the settings application would, and exit; TYPE is bool, number
                        or string; --set KEY remove takes the key away
  --help                show this and exit
  --version             show the version and exit

The exit code is 0 for success, 2 when an option, a script or a file is at fault, and 3 when a plug-in has
crashed while a script was played. Without a script the phone then starts again by itself, without that plug-in.
)";
}

} // namespace phone
