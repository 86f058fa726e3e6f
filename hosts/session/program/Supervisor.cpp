#include "hosts/session/program/Supervisor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace session {

namespace {

constexpr int exitStaysDown = 4;
constexpr std::array stopSignals{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t childProcess = 0;
volatile std::sig_atomic_t stopped = 0;

void passOn(int signal) {
    stopped = 1;
    if (childProcess > 0)
        kill(childProcess, signal);
}

void takeStopSignals(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    for (const int signal : stopSignals)
        sigaction(signal, &action, nullptr);
}

/// This process has no run loop, and a child's end is nothing that could be tested in virtual time.
double secondsSinceBoot() {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

[[noreturn]] void runChild(int (*host)(void*), void* data, pid_t parent) {
    takeStopSignals(SIG_DFL);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent)
        std::_Exit(EXIT_FAILURE); // it went before it could be watched
    const int exitCode = host(data);
    std::fflush(nullptr);
    // A host that has been started is not torn down.
    std::quick_exit(exitCode);
}

int waitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

/// The times of the latest crashes.
class Crashes {
public:
    /// Answers whether there have been too many.
    bool add(double time) {
        times_[next_++ % times_.size()] = time;
        const double oldest = *std::min_element(times_.begin(), times_.end());
        return time - oldest < Supervisor::crashWindow;
    }

private:
    static constexpr double never = -1e9;
    std::array<double, Supervisor::mostCrashes> times_{never, never, never};
    std::size_t next_ = 0;
};

} // namespace

int Supervisor::run(int (*host)(void*), void* data) {
    Crashes crashes;
    takeStopSignals(passOn);
    for (;;) {
        const pid_t self = getpid();
        const pid_t child = fork();
        if (child < 0) {
            std::fprintf(stderr, "vela-session: no process can be started: %s\n", std::strerror(errno));
            return exitStaysDown;
        }
        if (child == 0)
            runChild(host, data, self);
        childProcess = child;
        if (stopped)
            kill(child, SIGTERM);
        const int status = waitFor(child);
        childProcess = 0;
        if (WIFEXITED(status))
            return WEXITSTATUS(status);
        if (stopped)
            return EXIT_SUCCESS;
        const int signal = WTERMSIG(status);
        if (crashes.add(secondsSinceBoot())) {
            std::fprintf(stderr, "vela-session: crashed %d times within a minute (%s); it stays down\n",
                         mostCrashes, strsignal(signal));
            return exitStaysDown;
        }
        std::fprintf(stderr, "vela-session: crashed (%s); starting again\n", strsignal(signal));
    }
}

} // namespace session
