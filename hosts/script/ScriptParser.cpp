#include "hosts/script/ScriptParser.h"

#include "hosts/script/NowPlayingEntry.h"
#include "hosts/script/PreferenceValue.h"
#include "hosts/script/ScriptArguments.h"
#include "hosts/script/ScriptWords.h"

#include <glib.h>

#include <fstream>
#include <map>
#include <set>

namespace script {

namespace {

constexpr std::size_t maximumScriptBytes = 4 * 1024 * 1024;
constexpr double longestWait = 86'400;
constexpr double longestMove = 3'600;
constexpr double longestSong = 1e6;
constexpr int mostFingers = 10;
constexpr std::size_t maximumTypedBytes = 64 * 1024;

/// Knows, as it goes down the lines, which fingers are on the glass.
class Parser {
public:
    /// Nothing for a line without a command.
    std::optional<Action> parseLine(std::string_view line);

private:
    Action touch(ScriptArguments& arguments);
    int takeFinger(ScriptArguments& arguments);
    std::set<int> fingersDown_;
};

template <class T>
T oneOf(ScriptArguments& arguments, std::string_view what, const std::map<std::string, T>& choices) {
    const std::string word = arguments.takeWord(what);
    if (const auto choice = choices.find(word); choice != choices.end())
        return choice->second;
    std::string names;
    for (const auto& [name, value] : choices)
        names += (names.empty() ? "" : ", ") + name;
    throw std::invalid_argument("\"" + word + "\" is none of " + names);
}

Action wait(ScriptArguments& arguments) {
    return Wait{arguments.takeNumber("the seconds", 0, longestWait)};
}

Action tap(ScriptArguments& arguments) {
    return Tap{arguments.takePoint()};
}

Action press(ScriptArguments& arguments) {
    return Press{oneOf<Button>(arguments, "a button",
                               {{"home", Button::Home},
                                {"home-double", Button::HomeDouble},
                                {"lock", Button::Lock},
                                {"volume-up", Button::VolumeUp},
                                {"volume-down", Button::VolumeDown}})};
}

Action open(ScriptArguments& arguments) {
    return Open{arguments.takeWord("a bundle identifier")};
}

Action rotate(ScriptArguments& arguments) {
    return Rotate{toolkit::DeviceOrientation{arguments.takeInteger("the orientation", 0, 6)}};
}

Action keyboard(ScriptArguments& arguments) {
    return Keyboard{oneOf<bool>(arguments, "show or hide", {{"show", true}, {"hide", false}})};
}

Action setPreference(ScriptArguments& arguments) {
    const std::string key = arguments.takeWord("a key");
    checkPreferenceKey(key);
    const std::string type = arguments.takeWord("a type");
    if (type == "remove")
        return SetPreference{key, {}};
    return SetPreference{key, parsePreferenceValue(type, arguments.takeWord("a value"))};
}

Action type(ScriptArguments& arguments) {
    const std::string text = arguments.takeWord("a text");
    if (text.size() > maximumTypedBytes)
        throw std::invalid_argument("the text is too long");
    return Type{text};
}

Action install(ScriptArguments& arguments) {
    return Install{arguments.takeWord("a plug-in's directory")};
}

Action music(ScriptArguments& arguments) {
    oneOf<bool>(arguments, "add", {{"add", true}});
    return AddMusic{arguments.takeWord("a directory")};
}

Action play(ScriptArguments& arguments) {
    static const std::map<std::string, PlayerButton> buttons{{"next", PlayerButton::Next},
                                                             {"previous", PlayerButton::Previous},
                                                             {"pause", PlayerButton::Pause},
                                                             {"resume", PlayerButton::Resume}};
    const std::string word = arguments.takeWord("a title, next, previous, pause or resume");
    if (const auto button = buttons.find(word); button != buttons.end())
        return PressPlayer{button->second};
    return Play{word};
}

Action seek(ScriptArguments& arguments) {
    return Seek{arguments.takeNumber("the seconds", 0, longestSong)};
}

/// "TITLE|ARTIST" in one word, or in two.
Action radio(ScriptArguments& arguments) {
    std::string title = arguments.takeWord("a title and an artist");
    if (!arguments.atEnd())
        return Radio{title, arguments.takeWord("an artist")};
    const std::size_t bar = title.find('|');
    if (bar == std::string::npos)
        return Radio{title, ""};
    return Radio{title.substr(0, bar), title.substr(bar + 1)};
}

Action nowPlaying(ScriptArguments& arguments) {
    if (arguments.takeKeyword("none"))
        return NowPlaying{};
    foundation::PropertyList::Dictionary info;
    do {
        auto [key, value] = parseNowPlayingEntry(arguments.takeWord("KEY=VALUE or none"));
        info.insert_or_assign(std::move(key), std::move(value));
    } while (!arguments.atEnd());
    return NowPlaying{std::move(info)};
}

Action elapsed(ScriptArguments& arguments) {
    return Elapsed{arguments.takeNumber("the seconds", 0, longestSong)};
}

Action volumeSlider(ScriptArguments& arguments) {
    return VolumeSlider{oneOf<SliderMoment>(arguments, "begin or end",
                                            {{"begin", SliderMoment::Begin}, {"end", SliderMoment::End}})};
}

Action shot(ScriptArguments& arguments) {
    return Shot{arguments.takeFileName(".png")};
}

Action state(ScriptArguments& arguments) {
    return State{arguments.takeFileName(".json")};
}

Action lock(ScriptArguments&) {
    return Lock{};
}

Action unlock(ScriptArguments&) {
    return Unlock{};
}

using Reader = Action (*)(ScriptArguments&);
const std::map<std::string_view, Reader> readers{
    {"wait", wait},       {"tap", tap},
    {"press", press},     {"open", open},
    {"rotate", rotate},   {"keyboard", keyboard},
    {"lock", lock},       {"unlock", unlock},
    {"type", type},       {"shot", shot},
    {"state", state},     {"set", setPreference},
    {"install", install}, {"music", music},
    {"play", play},       {"seek", seek},
    {"radio", radio},     {"nowplaying", nowPlaying},
    {"elapsed", elapsed}, {"volume-slider", volumeSlider},
};

int Parser::takeFinger(ScriptArguments& arguments) {
    return arguments.takeKeyword("finger") ? arguments.takeInteger("the finger", 1, mostFingers) : 1;
}

Action Parser::touch(ScriptArguments& arguments) {
    enum class Kind { Down, Move, Up };
    const auto kind = oneOf<Kind>(arguments, "down, move or up",
                                  {{"down", Kind::Down}, {"move", Kind::Move}, {"up", Kind::Up}});
    const toolkit::Point point = kind == Kind::Up ? toolkit::Point{} : arguments.takePoint();
    std::optional<double> seconds;
    if (kind == Kind::Move && arguments.takeKeyword("over"))
        seconds = arguments.takeNumber("the seconds", 0, longestMove);
    const int finger = takeFinger(arguments);

    const std::string name = "finger " + std::to_string(finger);
    if (kind == Kind::Down) {
        if (!fingersDown_.insert(finger).second)
            throw std::invalid_argument(name + " is down already");
        return TouchDown{finger, point};
    }
    if (!fingersDown_.contains(finger))
        throw std::invalid_argument(name + " is not down");
    if (kind == Kind::Move)
        return TouchMove{finger, point, seconds};
    fingersDown_.erase(finger);
    return TouchUp{finger};
}

std::optional<Action> Parser::parseLine(std::string_view line) {
    if (line.find('\0') != std::string_view::npos || !g_utf8_validate_len(line.data(), line.size(), nullptr))
        throw std::invalid_argument("the line is not UTF-8 text");
    std::vector<std::string> words = splitWords(line);
    if (words.empty())
        return std::nullopt;
    const std::string name = words.front();
    ScriptArguments arguments(std::move(words));
    std::optional<Action> action;
    if (name == "touch")
        action = touch(arguments);
    else if (const auto reader = readers.find(name); reader != readers.end())
        action = reader->second(arguments);
    else
        throw std::invalid_argument("\"" + name + "\" is no command");
    arguments.expectEnd();
    return action;
}

} // namespace

Script parseScript(std::string_view text, const std::string& file) {
    if (text.size() > maximumScriptBytes)
        throw ScriptError(file, 0, "the script is larger than 4 MiB");
    Script script{file, {}};
    Parser parser;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        try {
            if (auto action = parser.parseLine(text.substr(0, end)))
                script.commands.push_back({number, std::move(*action)});
        } catch (const std::invalid_argument& error) {
            throw ScriptError(file, number, error.what());
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return script;
}

Script readScript(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw ScriptError(path.string(), 0, "there is no such script");
    std::ifstream stream(path, std::ios::binary);
    std::string text(maximumScriptBytes + 1, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!stream.is_open() || stream.bad())
        throw ScriptError(path.string(), 0, "the script cannot be read");
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return parseScript(text, path.string());
}

} // namespace script
