// A display without a screen, with a message bus and the services of assistive technology of its own: what a
// test needs to use a program as somebody would who does not see it.
//
// One per process, for libraries keep their connection for good.
#pragma once

#include "tests/settings-app/Accessible.h"
#include "tests/support/BackgroundProcess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/VirtualDisplay.h"

#include <memory>
#include <string>
#include <vector>

namespace support {

class AccessibleDesktop {
public:
    static AccessibleDesktop& shared();

    /// Whether everything that it is made of could be started.
    bool started() const { return started_; }
    const std::string& display() const { return display_.name(); }
    /// What a program's environment holds, so that it shows itself here and leaves the user's things alone.
    std::vector<std::string> environment() const;
    /// The program of that name, as soon as it is there: nothing when it has not come within the limit.
    Accessible program(const std::string& name) const;
    bool isRunning(const std::string& name) const;

    /// The hand on pointer and keyboard: the words of one xdotool command.
    void input(std::vector<std::string> words) const;
    void key(const std::string& name) const { input({"key", name}); }

private:
    AccessibleDesktop();
    Accessible findProgram(const std::string& name) const;

    tests::TemporaryDirectory directory_;
    VirtualDisplay display_;
    std::unique_ptr<BackgroundProcess> bus_;
    bool started_ = false;
};

/// Asks again and again, for at most `seconds`, until `holds` does. Answers whether it did.
bool waitUntil(const std::function<bool()>& holds, double seconds = 20);

} // namespace support
