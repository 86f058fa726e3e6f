// A phone script: what a hand does to the phone, one command a line (see docs/phone-script.md).
//
// A value without behaviour: ScriptParser makes it of text, ScriptPlayer plays it. Coordinates are points of
// the screen as it stands when the command is played, times are seconds.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/toolkit/geometry/Geometry.h"
#include "platform/toolkit/windows/UIDevice.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace script {

enum class Button { Home, HomeDouble, Lock, VolumeUp, VolumeDown };
enum class PlayerButton { Next, Previous, Pause, Resume };
enum class SliderMoment { Begin, End };

struct Wait {
    double seconds;
};
struct TouchDown {
    int finger;
    toolkit::Point to;
};
/// In even steps over `seconds`, or, without them, one event.
struct TouchMove {
    int finger;
    toolkit::Point to;
    std::optional<double> seconds;
};
struct TouchUp {
    int finger;
};
struct Tap {
    toolkit::Point at;
};
struct Press {
    Button button;
};
struct Open {
    std::string bundleIdentifier;
};
struct Rotate {
    toolkit::DeviceOrientation orientation;
};
struct Keyboard {
    bool shown;
};
struct Lock {};
struct Unlock {};
/// A nil value takes the key away.
struct SetPreference {
    std::string key;
    foundation::PropertyList value;
};
struct Type {
    std::string text;
};
/// The path of a plug-in's bundle on this machine.
struct Install {
    std::string path;
};
/// A directory of audio files on this machine.
struct AddMusic {
    std::string path;
};
/// The song of that title.
struct Play {
    std::string title;
};
struct PressPlayer {
    PlayerButton button;
};
struct Seek {
    double seconds;
};
/// A stream that says it plays this.
struct Radio {
    std::string title;
    std::string artist;
};
/// A dictionary, or nil.
struct NowPlaying {
    foundation::PropertyList info;
};
struct Elapsed {
    double seconds;
};
struct VolumeSlider {
    SliderMoment moment;
};
struct Shot {
    std::string fileName;
};
struct State {
    std::string fileName;
};

using Action = std::variant<Wait, TouchDown, TouchMove, TouchUp, Tap, Press, Open, Rotate, Keyboard, Lock,
                            Unlock, SetPreference, Type, Install, AddMusic, Play, PressPlayer, Seek, Radio,
                            NowPlaying, Elapsed, VolumeSlider, Shot, State>;

struct Command {
    int line; // from 1
    Action action;
};

struct Script {
    /// The name that errors are reported under.
    std::string file;
    std::vector<Command> commands;
};

} // namespace script
