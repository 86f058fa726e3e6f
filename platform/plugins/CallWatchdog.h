// Names plug-ins in the log that keep a call for too long.
//
// A thread of its own waits for a timer that runs only while a call is on, so that a phone at rest wakes
// nothing. It goes by real time, whatever the main loop's clock says: a plug-in that hangs stops that one,
// too.
#pragma once

#include <string>

namespace plugins {

class CallWatchdog {
public:
    static constexpr int allowedSeconds = 2;

    /// A call from construction to destruction; of nested ones the outermost counts. Both arguments live as
    /// long. Main thread only.
    class Scope {
    public:
        Scope(const std::string& identifier, const char* method);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
    };
};

} // namespace plugins
