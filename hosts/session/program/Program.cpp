#include "hosts/session/program/Program.h"

#include "hosts/device/DeviceRoot.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/session/program/ControlClient.h"
#include "hosts/session/program/MemoryUse.h"
#include "hosts/session/program/RunningSession.h"
#include "hosts/session/program/Supervisor.h"
#include "platform/foundation/Log.h"
#include "platform/plugins/CrashNote.h"
#include "platform/plugins/DisabledPlugins.h"

#include <glib-unix.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace session {

namespace {

constexpr int exitSuccess = 0;
constexpr int exitFault = 2;

gboolean stopLoop(gpointer loop) {
    static_cast<foundation::GlibRunLoop*>(loop)->stop();
    return G_SOURCE_CONTINUE;
}

int reportFault(const std::exception& error) {
    std::fprintf(stderr, "vela-session: %s\n", error.what());
    return exitFault;
}

/// The plug-in that took the former process along is left out.
void takeNoteOfPluginCrash() {
    if (const auto identifier = plugins::takeNoteOfCrash())
        foundation::log(
            "vela-session: the plug-in " + *identifier +
            " crashed and is left out from now on; its tile on the board lets you enable it again");
}

void runHost(const Options& options) {
    MemoryUse::keepLow();
    const device::DeviceRoot root(options.root.value_or(device::DeviceRoot::userRoot()));
    root.fill(device::resourceDirectory() / "device");
    if (options.bringPlugins)
        root.fill(device::builtDeviceDirectory());
    takeNoteOfPluginCrash();
    // Both live until the process ends: the product's timers and windows refer to them.
    auto& loop = *new foundation::GlibRunLoop;
    foundation::RunLoop::setMain(&loop);
    g_unix_signal_add(SIGINT, stopLoop, &loop);
    g_unix_signal_add(SIGTERM, stopLoop, &loop);
    new RunningSession(options, loop);
    loop.run();
}

int runHostProcess(void* data) {
    try {
        runHost(*static_cast<const Options*>(data));
        return exitSuccess;
    } catch (const std::exception& error) {
        return reportFault(error);
    }
}

int run(Options options) {
    if (options.help)
        std::fputs(Options::helpText().c_str(), stdout);
    else if (options.version)
        std::puts("vela-session " VELA_VERSION);
    else if (options.request != Options::Request::None)
        sendRequest(options);
    else if (options.supervise)
        return Supervisor::run(runHostProcess, &options);
    else
        return runHostProcess(&options);
    return exitSuccess;
}

} // namespace

int runProgram(const std::vector<std::string>& arguments) {
    try {
        return run(Options::parse(arguments));
    } catch (const OptionsError& error) {
        std::fprintf(stderr, "vela-session: %s\nvela-session --help lists the options.\n", error.what());
        return exitFault;
    } catch (const std::exception& error) {
        return reportFault(error);
    }
}

} // namespace session
