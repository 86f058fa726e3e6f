#include "hosts/settings/program/Program.h"

#include "hosts/device/DeviceRoot.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/device/ProgramError.h"
#include "hosts/settings/program/ShellTool.h"

#include <cstdio>

namespace settings {

namespace {

constexpr int exitSuccess = 0;
constexpr int exitFault = 2;

int runOnDevice(const Options& options, WindowFunction runWindow) {
    const device::DeviceRoot root(options.root.value_or(device::DeviceRoot::userRoot()));
    root.fill(device::resourceDirectory() / "device");
    if (options.action != Options::Action::Window)
        return runShellTool(options);
    runWindow(options);
    return exitSuccess;
}

int run(const Options& options, WindowFunction runWindow) {
    switch (options.action) {
    case Options::Action::Help:
        std::fputs(Options::helpText().c_str(), stdout);
        return exitSuccess;
    case Options::Action::Version:
        std::puts("vela-settings " VELA_VERSION);
        return exitSuccess;
    default:
        return runOnDevice(options, runWindow);
    }
}

} // namespace

int runProgram(const std::vector<std::string>& arguments, WindowFunction runWindow) {
    try {
        return run(Options::parse(arguments), runWindow);
    } catch (const OptionsError& error) {
        std::fprintf(stderr, "vela-settings: %s\nvela-settings --help lists the options.\n", error.what());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vela-settings: %s\n", error.what());
    }
    return exitFault;
}

} // namespace settings
