// The windows of other programs, and which of them is in front.
#pragma once

#include "hosts/session/wayland/Proxy.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace session {

class Toplevels {
public:
    /// `changed` is called when another application has come to the front.
    Toplevels(Proxy<zwlr_foreign_toplevel_manager_v1> manager, std::function<void()> changed);
    ~Toplevels();
    Toplevels(const Toplevels&) = delete;
    Toplevels& operator=(const Toplevels&) = delete;

    /// What the active window's application calls itself; empty when none is active.
    const std::string& front() const { return front_; }
    /// While held, the front stays what it is: some compositors call no window active when a surface of ours
    /// has the keyboard.
    void setHeld(bool held);

private:
    struct Toplevel;
    struct Listener;
    friend struct Listener;
    const Toplevel* active() const;
    bool isThere(const std::string& application) const;
    void update();

    Proxy<zwlr_foreign_toplevel_manager_v1> manager_;
    std::function<void()> changed_;
    std::vector<std::unique_ptr<Toplevel>> toplevels_;
    std::string front_;
    bool held_ = false;
};

} // namespace session
