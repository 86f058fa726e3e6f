// What happens when a fatal signal arrives within a plug-in's call, or the plug-in exits: its identifier is
// written to the note that takeNoteOfCrash() reads, and the host gets the chance to start itself again.
//
// Signals outside of such calls, and those of other threads, go their former ways. Main thread only.
#pragma once

#include <string>

namespace plugins {

/// What a host does once the note is written: replace the process or end it. It runs in a signal handler, on
/// a small stack, with the fatal signals unblocked, and may call nothing but what is safe there. When it
/// returns, or there is none, the signal has its usual effect.
using CrashAction = void (*)();
void setCrashAction(CrashAction action);

class CrashNote {
public:
    /// Installs the signal handlers and makes ready to write the note on this device's disk. Before the first
    /// call into a plug-in; once more is harmless.
    static void prepare();

    /// Marks the time between construction and destruction as a call into the plug-in `identifier`, which
    /// must live as long.
    class Scope {
    public:
        explicit Scope(const std::string& identifier);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        const std::string* outer_;
    };
};

} // namespace plugins
