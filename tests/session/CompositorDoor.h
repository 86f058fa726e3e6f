// A door to a compositor for clients that shall find something else there: some of its globals are never
// announced, and its outputs may be said to be switched off, which no output without a screen can be.
//
// Everything else passes as it is. It may stand before a compositor that ends and is started again.
#pragma once

#include "tests/session/FilteredLine.h"
#include "tests/support/TemporaryDirectory.h"

#include <list>

namespace tests {

class CompositorDoor {
public:
    /// `socket` is the compositor's; `hidden` are the names of interfaces.
    CompositorDoor(std::filesystem::path socket, std::set<std::string> hidden);
    ~CompositorDoor();

    /// What those clients do not find that come from now on.
    void hide(std::set<std::string> interfaces);
    /// What its clients need: "WAYLAND_DISPLAY=…".
    std::string environment() const { return "WAYLAND_DISPLAY=" + place().string(); }
    /// Tells whoever watches an output's power.
    void tell(FilteredLine::Power power);

private:
    std::filesystem::path place() const { return directory_.path() / "wayland"; }
    void serve();

    TemporaryDirectory directory_;
    std::filesystem::path compositor_;
    WireSocket listener_;
    std::mutex mutex_;
    std::set<std::string> hidden_;  // under the mutex,
    std::list<FilteredLine> lines_; // as these are
    std::jthread thread_;
};

} // namespace tests
