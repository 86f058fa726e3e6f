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
    /// Plays `script` to its end; throws with what the program said when it fails. Preferences are the
    /// defaults of a fresh installation.
    explicit PhoneRun(const std::string& script, std::vector<std::string> arguments = {}) {
        const auto scriptFile = directory_.path() / "script.phone";
        std::ofstream(scriptFile) << script;
        std::vector<std::string> command{
            VELA_BINARY_DIR "/bin/vela-phone", "--headless", "--script", scriptFile, "--out",
            directory_.path() / "out",         "--root",     root()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const auto child = support::ChildProcess::run(command);
        if (child.exitCode != 0)
            throw std::runtime_error("vela-phone: " + child.errors);
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

private:
    TemporaryDirectory directory_;
};

} // namespace tests
