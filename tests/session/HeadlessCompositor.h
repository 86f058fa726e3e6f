// A real compositor without a screen, in a runtime directory of its own.
//
// Sway refuses root's rights: run as root, the compositor becomes the user that owns nothing. One with a
// touch screen runs as the only window of a parent compositor, whose fingers it has.
#pragma once

#include "tests/session/parent/ParentCompositor.h"
#include "tests/support/BackgroundProcess.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <memory>
#include <string>
#include <vector>

namespace tests {

class HeadlessCompositor {
public:
    enum class Kind { Sway, Phoc };
    struct Screen {
        int width = 750; // pixels, not turned
        int height = 1334;
        std::string scale = "2";
        std::string transform = "normal";
        std::string parent = {}; // the socket of the compositor in which it is a window; empty for none
        bool hasTouch = false;   // in a parent of its own
    };

    explicit HeadlessCompositor(Screen screen, Kind kind = Kind::Sway);

    bool started() const { return started_; }
    /// Starts it again on the same socket, after its end.
    bool start();
    void stop();
    /// Ends it as a crash does.
    void kill();
    /// Where it listens.
    std::filesystem::path socket() const { return directory_.path() / display(); }
    /// What its clients need: "WAYLAND_DISPLAY=…", "XDG_RUNTIME_DIR=…".
    std::vector<std::string> environment() const;
    /// As the compositor chooses it in an empty runtime directory.
    std::string display() const { return kind_ == Kind::Sway ? "wayland-1" : "wayland-0"; }
    const std::filesystem::path& runtimeDirectory() const { return directory_.path(); }
    /// There is one if the screen has touch.
    ParentCompositor& parent() { return *parent_; }
    /// A command to Sway, "output HEADLESS-1 transform 90".
    bool command(const std::string& text) const;
    /// What the screen shows, as a PNG file.
    bool takePicture(const std::filesystem::path& file) const;

private:
    std::vector<std::string> commandLine() const;
    std::vector<std::string> variables() const;
    bool plugInTouch();
    void writeConfiguration() const;

    Screen screen_;
    Kind kind_;
    TemporaryDirectory directory_;
    std::unique_ptr<ParentCompositor> parent_;
    std::unique_ptr<support::BackgroundProcess> process_;
    bool started_ = false;
};

} // namespace tests
