// The real settings application in a window of its own, used through assistive technology, a pointer and
// keys, on a device of the test's own.
#pragma once

#include "platform/foundation/FileManager.h"
#include "tests/settings-app/AccessibleDesktop.h"
#include "tests/support/ChildProcess.h"

#include <gtest/gtest.h>

#include <fstream>

namespace settings {

using foundation::PropertyList;
using support::Accessible;
using support::AccessibleDesktop;
using support::waitUntil;

inline constexpr const char* preferencesFile = "/var/mobile/Library/Preferences/org.lanternhub.vela3.plist";
inline constexpr const char* lyricsFile = "/var/mobile/Documents/Vela/fetchedLyrics.plist";
inline constexpr const char* artworkDirectory = "/var/mobile/Documents/Vela/Artworks";

class SettingsProgramTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(AccessibleDesktop::shared().started()) << "Xvfb, dbus-daemon or at-spi2-core is missing";
        // A device that the settings have filled, and where the tutorial has been shown.
        ASSERT_EQ(shell({"--list"}).exitCode, 0);
        ASSERT_TRUE(files().setDeviceRoot(root()));
        setPreference("tutorial", true);
    }

    AccessibleDesktop& desktop() { return AccessibleDesktop::shared(); }
    static foundation::FileManager& files() { return foundation::FileManager::shared(); }
    std::string root() const { return directory_.path() / "root"; }
    std::string path(const std::string& name) const { return directory_.path() / name; }

    support::ChildProcess shell(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {VELA_BINARY_DIR "/bin/vela-settings", "--root", root()});
        return support::ChildProcess::run(arguments, environment());
    }
    /// What the programs' environment holds.
    virtual std::vector<std::string> environment() { return desktop().environment(); }

    void start(const std::vector<std::string>& arguments = {}) {
        program_.reset();
        // The program before may still be signing off.
        ASSERT_TRUE(waitUntil([&] { return !desktop().isRunning("vela-settings"); }));
        std::vector<std::string> command{VELA_BINARY_DIR "/bin/vela-settings", "--root", root()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        program_ = std::make_unique<support::BackgroundProcess>(command, environment());
        window_ = desktop().program("vela-settings");
        ASSERT_TRUE(window_) << "the window does not come";
        // There is no window manager that would give it the keyboard.
        desktop().input(
            {"search", "--sync", "--onlyvisible", "--name", "^Settings$", "windowfocus", "--sync"});
    }
    bool isRunning() const { return program_ && program_->isRunning(); }
    /// Closes the program as its user would, by its signal, and answers its exit code.
    int stop() {
        kill(program_->processId(), SIGTERM);
        return program_->waitForEnd();
    }
    const Accessible& window() const { return window_; }

    /// The control of that role and name, as soon as it is there; throws when it does not come.
    Accessible find(const std::string& role, const std::string& name) {
        Accessible found;
        waitUntil([&] { return static_cast<bool>(found = window_.find(role, name)); });
        if (!found)
            throw std::runtime_error("there is no " + role + " " + name);
        return found;
    }
    bool has(const std::string& role, const std::string& name) {
        return static_cast<bool>(window_.find(role, name));
    }
    /// Brings the keyboard's focus to a control, by the keys that lead there; throws when none does.
    void focus(const Accessible& control) {
        constexpr int mostKeys = 120;
        for (int key = 0; key < mostKeys && !control.has(ATSPI_STATE_FOCUSED); ++key)
            desktop().key(isFocusBeside(control) ? "Down" : "Tab");
        if (!control.has(ATSPI_STATE_FOCUSED))
            throw std::runtime_error(control.name() + " takes no focus");
    }
    /// Gives a row or button the focus and presses Return.
    void press(const std::string& role, const std::string& name) {
        focus(find(role, name));
        desktop().key("Return");
    }
    void openPage(const std::vector<std::string>& rows) {
        for (const std::string& row : rows) {
            press("list item", row);
            if (!waitUntil([&] { return !has("list item", row); }))
                throw std::runtime_error(row + " leads nowhere");
        }
    }

    static PropertyList::Dictionary dictionary(const char* devicePath) {
        return files().readDictionary(devicePath).value_or(PropertyList::Dictionary());
    }
    static PropertyList preference(const std::string& key) {
        return PropertyList(dictionary(preferencesFile))[key];
    }
    static void setPreference(const std::string& key, const PropertyList& value) {
        auto preferences = dictionary(preferencesFile);
        preferences.insert_or_assign(key, value);
        ASSERT_TRUE(files().writeDictionaryAtomically(preferencesFile, preferences));
    }
    static bool waitForPreference(const std::string& key, const PropertyList& value) {
        return waitUntil([&] { return preference(key) == value; });
    }

private:
    /// Whether another row of the control's list has the focus.
    static bool isFocusBeside(const Accessible& control) {
        if (control.role() != "list item")
            return false;
        const auto rows = control.parent().children();
        return std::any_of(rows.begin(), rows.end(),
                           [](const Accessible& row) { return row.has(ATSPI_STATE_FOCUSED); });
    }

    tests::TemporaryDirectory directory_;
    std::unique_ptr<support::BackgroundProcess> program_;
    Accessible window_;
};

} // namespace settings
