// The one way into a plug-in's code.
//
// An exception that leaves the plug-in is caught, logged once, and the plug-in's view is not called again. A
// call that lasts longer than two seconds is named in the log while it still lasts. A fatal signal within a
// call leaves a note of whose call it was before the process ends (see CrashNote.h). Main thread only; calls
// may nest.
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
    /// Called once when that happens, after the call is over.
    std::function<void()> onEnd;
};

class PluginCall {
public:
    /// Runs `code` as the plug-in's `method`, which names it in the log and must be a literal. Answers false
    /// when the plug-in has ended before or by this call.
    static bool run(const std::shared_ptr<Caller>& caller, const char* method,
                    const std::function<void()>& code);
};

} // namespace plugins
