// A script's target that writes down what it is asked, with the time.
#pragma once

#include "hosts/script/ScriptTarget.h"
#include "platform/foundation/RunLoop.h"

#include <cstdio>
#include <vector>

namespace support {

class RecordingScriptTarget final : public script::ScriptTarget {
public:
    std::vector<std::string> calls;
    /// A call that begins with this text fails.
    std::string failing;
    /// How often music is still being read.
    mutable int turnsToRead = 0;

    Failure touchDown(int finger, toolkit::Point p) override { return record("down", finger, p); }
    Failure touchMove(int finger, toolkit::Point p) override { return record("move", finger, p); }
    Failure touchUp(int finger) override { return record("up " + std::to_string(finger)); }
    Failure press(script::Button button) override {
        return record("press " + std::to_string(static_cast<int>(button)));
    }
    Failure open(const std::string& identifier) override { return record("open " + identifier); }
    Failure rotate(toolkit::DeviceOrientation orientation) override {
        return record("rotate " + std::to_string(static_cast<int>(orientation)));
    }
    Failure setKeyboardShown(bool shown) override { return record(shown ? "keyboard" : "no keyboard"); }
    Failure lock() override { return record("lock"); }
    Failure unlock() override { return record("unlock"); }
    Failure setPreference(const std::string& key, const foundation::PropertyList& value) override {
        return record("set " + key + (value.isNil() ? " away" : ""));
    }
    Failure type(const std::string& text) override { return record("type " + text); }
    Failure installPlugIn(const std::string& path) override { return record("install " + path); }
    Failure addMusic(const std::string& path) override {
        turnsToRead = 2;
        return record("music " + path);
    }
    bool isReadingMusic() const override { return turnsToRead-- > 0; }
    Failure playSong(const std::string& title) override { return record("song " + title); }
    Failure pressPlayer(script::PlayerButton button) override {
        return record("player " + std::to_string(static_cast<int>(button)));
    }
    Failure seek(double seconds) override { return record("seek " + std::to_string(seconds)); }
    Failure playRadio(const std::string& title, const std::string& artist) override {
        return record("radio " + title + "/" + artist);
    }
    Failure reportNowPlaying(const foundation::PropertyList& info) override {
        return record(info.isNil() ? "nothing plays" : "plays " + std::to_string(info.dictionary()->size()));
    }
    Failure reportElapsed(double seconds) override { return record("elapsed " + std::to_string(seconds)); }
    Failure holdVolumeSlider(script::SliderMoment moment) override {
        return record(moment == script::SliderMoment::Begin ? "hold" : "let go");
    }
    Failure writeScreenshot(const std::string& name) override { return record("shot " + name); }
    Failure writeState(const std::string& name) override { return record("state " + name); }

private:
    Failure record(const std::string& kind, int finger, toolkit::Point p) {
        char text[96];
        std::snprintf(text, sizeof text, "%s %d %g,%g", kind.c_str(), finger, p.x, p.y);
        return record(text);
    }
    Failure record(const std::string& call) {
        char time[32];
        std::snprintf(time, sizeof time, "%.4f ", foundation::RunLoop::main().now() - begin_);
        calls.push_back(time + call);
        if (!failing.empty() && call.starts_with(failing))
            return "it would not";
        return std::nullopt;
    }

    double begin_ = foundation::RunLoop::main().now();
};

} // namespace support
