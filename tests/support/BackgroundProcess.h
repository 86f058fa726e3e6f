// A process that runs beside the test and is ended with the object.
#pragma once

#include <glib.h>

#include <csignal>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace support {

class BackgroundProcess {
public:
    /// `environment` holds "NAME=value" to set; `output` becomes the reading end of its standard output.
    BackgroundProcess(std::vector<std::string> command, const std::vector<std::string>& environment,
                      int* output = nullptr) {
        gchar** variables = g_get_environ();
        for (const auto& entry : environment) {
            const auto equals = entry.find('=');
            variables = g_environ_setenv(variables, entry.substr(0, equals).c_str(),
                                         entry.substr(equals + 1).c_str(), TRUE);
        }
        std::vector<gchar*> arguments;
        for (auto& argument : command)
            arguments.push_back(argument.data());
        arguments.push_back(nullptr);
        const auto flags = GSpawnFlags(G_SPAWN_DO_NOT_REAP_CHILD | G_SPAWN_SEARCH_PATH);
        started_ = g_spawn_async_with_pipes(nullptr, arguments.data(), variables, flags, nullptr, nullptr,
                                            &pid_, nullptr, output, nullptr, nullptr);
        g_strfreev(variables);
    }
    BackgroundProcess(const BackgroundProcess&) = delete;
    BackgroundProcess& operator=(const BackgroundProcess&) = delete;
    ~BackgroundProcess() {
        if (started_)
            kill(pid_, SIGTERM);
        waitForEnd();
    }
    bool started() const { return started_; }
    GPid processId() const { return pid_; }
    /// Whether it has not ended by itself so far.
    bool isRunning() const {
        siginfo_t information{};
        return started_ &&
               waitid(P_PID, static_cast<id_t>(pid_), &information, WEXITED | WNOHANG | WNOWAIT) == 0 &&
               information.si_pid == 0;
    }
    /// Ends it without giving it a chance to do anything more.
    void killNow() {
        if (started_)
            kill(pid_, SIGKILL);
        waitForEnd();
    }
    /// The exit code, -1 when a signal ended it.
    int waitForEnd() {
        int status = 0;
        if (!started_)
            return -1;
        started_ = false;
        waitpid(pid_, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    GPid pid_ = 0;
    bool started_ = false;
};

} // namespace support
