// Plays a script on a target, on the main run loop: as fast as the machine can on a virtual one, in real time
// on the other.
//
// Each command runs in a turn of its own, after everything that the one before it set off at the same moment.
// The target must outlive the player. Main thread only.
#pragma once

#include "hosts/script/Script.h"
#include "hosts/script/ScriptError.h"
#include "hosts/script/ScriptTarget.h"
#include "platform/foundation/Handle.h"

#include <functional>
#include <map>

namespace script {

class ScriptPlayer {
public:
    /// Gets nothing when the script came to its end.
    using Finished = std::function<void(const std::optional<ScriptError>&)>;

    ScriptPlayer(Script script, ScriptTarget& target) : script_(std::move(script)), target_(target) {}

    /// Begins in the next turn; `finished` is called once. The player must stand until then.
    void start(Finished finished);

    /// The time that the script takes, in seconds.
    static double durationOf(const Script& script);

private:
    using Failure = ScriptTarget::Failure;
    struct Drag {
        int finger = 0;
        toolkit::Point from;
        toolkit::Point to;
        int steps = 1;
        int stepsDone = 0;
        double begin = 0;
    };

    void playNext();
    void continueAfter(double seconds);
    void finish(const std::optional<std::string>& failure);
    /// Goes on to the next command, at once, unless the last one failed.
    void proceed(const Failure& failure);

    void play(const Wait& wait);
    void play(const TouchDown& touch);
    void play(const TouchMove& touch);
    void play(const TouchUp& touch);
    void play(const Tap& tap);
    void play(const Press& press) { proceed(target_.press(press.button)); }
    void play(const Open& open) { proceed(target_.open(open.bundleIdentifier)); }
    void play(const Rotate& rotate) { proceed(target_.rotate(rotate.orientation)); }
    void play(const Keyboard& keyboard) { proceed(target_.setKeyboardShown(keyboard.shown)); }
    void play(const Lock&) { proceed(target_.lock()); }
    void play(const Unlock&) { proceed(target_.unlock()); }
    void play(const SetPreference& set) { proceed(target_.setPreference(set.key, set.value)); }
    void play(const Type& type) { proceed(target_.type(type.text)); }
    void play(const Install& install) { proceed(target_.installPlugIn(install.path)); }
    void play(const AddMusic& music);
    void play(const Play& song) { proceed(target_.playSong(song.title)); }
    void play(const PressPlayer& press) { proceed(target_.pressPlayer(press.button)); }
    void play(const Seek& seek) { proceed(target_.seek(seek.seconds)); }
    void play(const Radio& radio) { proceed(target_.playRadio(radio.title, radio.artist)); }
    void play(const NowPlaying& playing) { proceed(target_.reportNowPlaying(playing.info)); }
    void play(const Elapsed& elapsed) { proceed(target_.reportElapsed(elapsed.seconds)); }
    void play(const VolumeSlider& slider) { proceed(target_.holdVolumeSlider(slider.moment)); }
    void play(const Shot& shot) { proceed(target_.writeScreenshot(shot.fileName)); }
    void play(const State& state) { proceed(target_.writeState(state.fileName)); }
    void stepDrag();
    /// Goes on once music has been read, and looks first after so many seconds.
    void waitForMusic(double seconds);

    Script script_;
    ScriptTarget& target_;
    Finished finished_;
    std::size_t next_ = 0;
    std::map<int, toolkit::Point> fingers_;
    Drag drag_;
    foundation::Handle timer_;
};

} // namespace script
