// The line to the compositor, served by the main loop.
//
// Main thread only. When the compositor goes, or cuts the line, `lost` is called once; nothing made from this
// connection is of use then.
#pragma once

#include "hosts/session/wayland/Globals.h"

#include <functional>
#include <memory>

struct wl_display;

namespace session {

class Connection {
public:
    /// To the compositor that the environment names. Throws ConnectionError.
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    wl_display* display() const { return display_.get(); }
    Globals& globals() { return *globals_; }

    /// Serves events in the main loop from now on. `served` is called after some have been.
    void serve(std::function<void()> served, std::function<void()> lost);
    /// Waits until the compositor has answered everything asked so far; false when it is gone.
    bool roundtrip();
    void flush();

private:
    struct Source;
    struct DisplayRelease {
        void operator()(wl_display* display) const;
    };
    void reportLoss();

    std::unique_ptr<wl_display, DisplayRelease> display_;
    std::unique_ptr<Globals> globals_;
    Source* source_ = nullptr;
    std::function<void()> served_;
    std::function<void()> lost_;
};

} // namespace session
