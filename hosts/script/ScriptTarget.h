// What a host must be able to do so that scripts can be played on it.
//
// Every call is made on the main thread in a turn of its own. A call that fails answers the reason, which
// ends the script.
#pragma once

#include "hosts/script/Script.h"

namespace script {

class ScriptTarget {
public:
    using Failure = std::optional<std::string>;

    virtual ~ScriptTarget() = default;

    virtual Failure touchDown(int finger, toolkit::Point point) = 0;
    virtual Failure touchMove(int finger, toolkit::Point point) = 0;
    virtual Failure touchUp(int finger) = 0;
    virtual Failure press(Button button) = 0;
    virtual Failure open(const std::string& bundleIdentifier) = 0;
    virtual Failure rotate(toolkit::DeviceOrientation orientation) = 0;
    virtual Failure setKeyboardShown(bool shown) = 0;
    virtual Failure lock() = 0;
    virtual Failure unlock() = 0;
    /// A nil value takes the key away.
    virtual Failure setPreference(const std::string& key, const foundation::PropertyList& value) = 0;
    virtual Failure type(const std::string& text) = 0;
    /// Copies a plug-in's bundle, a directory of this machine, into the device's plug-in directory. A plug-in
    /// of that directory name that is there is replaced.
    virtual Failure installPlugIn(const std::string& path) = 0;
    /// Takes a directory of this machine and what lies below it into the music library.
    virtual Failure addMusic(const std::string& path) = 0;
    /// Whether music is still being read.
    virtual bool isReadingMusic() const = 0;
    /// Plays the library's song of exactly that title, and goes on with those that follow it.
    virtual Failure playSong(const std::string& title) = 0;
    virtual Failure pressPlayer(PlayerButton button) = 0;
    virtual Failure seek(double seconds) = 0;
    /// Plays a stream that says it plays this.
    virtual Failure playRadio(const std::string& title, const std::string& artist) = 0;
    /// Reports what plays now: a dictionary, or nil.
    virtual Failure reportNowPlaying(const foundation::PropertyList& info) = 0;
    virtual Failure reportElapsed(double seconds) = 0;
    /// Takes hold of the volume slider of the hosted now-playing controls, or lets go of it.
    virtual Failure holdVolumeSlider(SliderMoment moment) = 0;
    /// Writes what the screen shows, as PNG, to `fileName` in the output directory.
    virtual Failure writeScreenshot(const std::string& fileName) = 0;
    virtual Failure writeState(const std::string& fileName) = 0;
};

} // namespace script
