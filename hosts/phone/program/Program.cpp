#include "hosts/phone/program/Program.h"

#include "hosts/device/DeviceRoot.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/device/ProgramError.h"
#include "hosts/phone/program/HeadlessRunner.h"
#include "hosts/phone/program/PluginCrash.h"
#include "hosts/phone/program/PreferencesFile.h"
#include "hosts/script/ScriptParser.h"

#include <unistd.h>

#include <cstdio>

namespace phone {

namespace {

constexpr int exitSuccess = 0;
constexpr int exitFault = 2;
constexpr int exitPluginCrash = 3;

void prepareOutputDirectory(const std::filesystem::path& directory) {
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (!std::filesystem::is_directory(directory, error) || access(directory.c_str(), W_OK | X_OK) != 0)
        throw device::ProgramError("the output directory " + directory.string() + " cannot be written");
}

void fillRoot(const device::DeviceRoot& root, const Options& options) {
    root.fill(device::resourceDirectory() / "device");
    if (options.bringPlugins)
        root.fill(device::builtDeviceDirectory());
}

void writePreferences(const Options& options) {
    const device::DeviceRoot root(options.root.value_or(device::DeviceRoot::userRoot()));
    fillRoot(root, options);
    for (const auto& preference : options.preferences)
        if (!PreferencesFile::set(preference.key, preference.value))
            throw device::ProgramError(std::string("the preferences file ") + PreferencesFile::path +
                                       " cannot be written in " + root.path().string());
}

void runPhone(const Options& options, WindowFunction runWindow) {
    std::optional<script::Script> script;
    if (options.script) {
        script = script::readScript(*options.script);
        prepareOutputDirectory(options.outputDirectory);
    }
    auto rootPath = options.root;
    if (!rootPath && !options.headless)
        rootPath = device::DeviceRoot::userRoot();
    const device::DeviceRoot root(rootPath, options.afterCrash);
    fillRoot(root, options);
    takeNoteOfPluginCrash(options);
    if (options.afterCrash)
        script.reset(); // it was played before the crash
    startAgainAfterPluginCrash(options, root.path());
    if (options.headless)
        runHeadless(options, *script);
    else
        runWindow(options, script);
}

void run(const Options& options, WindowFunction runWindow) {
    if (options.help)
        std::fputs(Options::helpText().c_str(), stdout);
    else if (options.version)
        std::puts("vela-phone " VELA_VERSION);
    else if (!options.preferences.empty())
        writePreferences(options);
    else
        runPhone(options, runWindow);
}

} // namespace

int runProgram(const std::vector<std::string>& arguments, WindowFunction runWindow) {
    try {
        run(Options::parse(arguments), runWindow);
        return exitSuccess;
    } catch (const OptionsError& error) {
        std::fprintf(stderr, "vela-phone: %s\nvela-phone --help lists the options.\n", error.what());
    } catch (const PluginCrash& crash) {
        std::fprintf(stderr, "vela-phone: %s\n", crash.what());
        return exitPluginCrash;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vela-phone: %s\n", error.what());
    }
    return exitFault;
}

} // namespace phone
