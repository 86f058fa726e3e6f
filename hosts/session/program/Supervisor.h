// Keeps a child process running: the session host lives in it, and a crash takes only it along.
#pragma once

namespace session {

class Supervisor {
public:
    /// A host that has crashed so often within a minute stays down.
    static constexpr int mostCrashes = 3;
    static constexpr double crashWindow = 60; // seconds

    /// Runs `host` in a child process, at once again after every crash (an end by a signal that nobody sent
    /// to stop it). Answers the exit code: the child's own, or 4 when it stays down. Called before anything
    /// else of the process has been made.
    static int run(int (*host)(void*), void* data);
};

} // namespace session
