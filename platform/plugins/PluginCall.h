// The one way into a plug-in's code.
//
// An exception that leaves the plug-in is caught, logged once, and the plug-in's view is not called again. A
// call that lasts longer than two seconds is named in the log while it still lasts (CallWatchdog.h). A fatal
// signal within a call leaves a note of whose call it was before the process ends (CrashNote.h). Main thread
// only; calls may nest.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace plugins {

/// Whose code is called: one for each view of a plug-in.
struct Caller {
    std::string identifier;
    /// An exception has left the plug-in: nothing of it is called any more.
    bool ended = false;
    /// The view, which is kept as long as a call is on: what is called may let go of it.
    std::weak_ptr<void> view;
    /// Called once when an exception has ended the plug-in, after that call.
    std::function<void()> onEnd;
};

class PluginCall {
public:
    /// Runs `code` as the plug-in's `method`, which names it in the log and must be a literal. Answers false,
    /// without running it, when the plug-in has ended, and when it ends by this call.
    static bool run(const std::shared_ptr<Caller>& caller, const char* method,
                    const std::function<void()>& code);
};

} // namespace plugins
