// A headless run of the real vela-phone with its extension, and the states that its script wrote.
#pragma once

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"

#include <nlohmann/json.hpp>

#include <fstream>
#include <stdexcept>

namespace tests {

class PhoneRun {
public:
    /// A phone that has not been started: its root may be prepared.
    PhoneRun() = default;

    /// Plays `script` to its end; throws with what the program said when it fails. Preferences are the
    /// defaults of a fresh installation.
    explicit PhoneRun(const std::string& script, const std::vector<std::string>& arguments = {}) {
        const auto child = play(script, arguments);
        if (child.exitCode != 0)
            throw std::runtime_error("vela-phone: " + child.errors);
    }

    /// Plays a script, once more on the same root.
    support::ChildProcess play(const std::string& script, const std::vector<std::string>& arguments = {}) {
        const auto scriptFile = directory_.path() / "script.phone";
        std::ofstream(scriptFile) << script;
        std::vector<std::string> command{
            VELA_BINARY_DIR "/bin/vela-phone", "--headless", "--script", scriptFile, "--out",
            directory_.path() / "out",         "--root",     root()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return support::ChildProcess::run(command);
    }

    std::string root() const { return directory_.path() / "root"; }

    nlohmann::json state(const std::string& name = "state.json") const {
        std::ifstream stream(directory_.path() / "out" / name);
        return nlohmann::json::parse(stream);
    }
    /// The window of a class in a state; throws when there is none.
    static nlohmann::json window(const nlohmann::json& state, const std::string& cls) {
        for (const auto& window : state["windows"])
            if (window["class"] == cls)
                return window;
        throw std::runtime_error("no window of class " + cls);
    }
    /// The views of a class within a window or view, in the order of drawing.
    static std::vector<nlohmann::json> views(const nlohmann::json& within, const std::string& cls) {
        std::vector<nlohmann::json> found;
        for (const auto& view : within["subviews"]) {
            if (view["class"] == cls)
                found.push_back(view);
            for (auto& deeper : views(view, cls))
                found.push_back(std::move(deeper));
        }
        return found;
    }

private:
    TemporaryDirectory directory_;
};

} // namespace tests
