// A program run to its end, with what it wrote and how it ended.
#pragma once

#include <glib.h>

#include <sys/wait.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace support {

struct ChildProcess {
    int exitCode = -1; // -1 when a signal ended it
    std::string output;
    std::string errors;

    /// `environment` holds "NAME=value" to set and "NAME" to take away.
    static ChildProcess run(std::vector<std::string> command,
                            const std::vector<std::string>& environment = {}) {
        gchar** variables = g_get_environ();
        for (const auto& entry : environment) {
            const auto equals = entry.find('=');
            variables = equals == std::string::npos
                            ? g_environ_unsetenv(variables, entry.c_str())
                            : g_environ_setenv(variables, entry.substr(0, equals).c_str(),
                                               entry.substr(equals + 1).c_str(), TRUE);
        }
        std::vector<gchar*> arguments;
        for (auto& argument : command)
            arguments.push_back(argument.data());
        arguments.push_back(nullptr);

        gchar *output = nullptr, *errors = nullptr;
        int status = 0;
        const bool started = g_spawn_sync(nullptr, arguments.data(), variables, G_SPAWN_DEFAULT, nullptr,
                                          nullptr, &output, &errors, &status, nullptr);
        g_strfreev(variables);
        if (!started)
            throw std::runtime_error("cannot start " + command.front());
        ChildProcess child{WIFEXITED(status) ? WEXITSTATUS(status) : -1, output, errors};
        g_free(output);
        g_free(errors);
        return child;
    }
};

} // namespace support
