#include "hosts/settings/program/ShellTool.h"

#include "hosts/device/ExtensionLoader.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/device/ProgramError.h"
#include "hosts/settings/program/ApplicationPort.h"
#include "hosts/settings/program/KnownSettings.h"
#include "hosts/settings/program/Pages.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/VirtualRunLoop.h"

#include <cstdio>

namespace settings {

namespace {

using device::ProgramError;

constexpr int exitSuccess = 0;
constexpr int exitNoValue = 1;

void list(const KnownSettings& known) {
    std::size_t widestKey = 0, widestValue = 0;
    for (const auto& row : known.rows()) {
        widestKey = std::max(widestKey, row->identifier().size());
        widestValue = std::max(widestValue, KnownSettings::valueText(*row).value_or("").size());
    }
    for (const auto& row : known.rows())
        std::printf("%-*s  %-*s  (%s)\n", static_cast<int>(widestKey), row->identifier().c_str(),
                    static_cast<int>(widestValue), KnownSettings::valueText(*row).value_or("").c_str(),
                    KnownSettings::describeValues(*row).c_str());
}

int get(preferences::PSSpecifier& row) {
    const auto value = KnownSettings::valueText(row);
    if (!value) {
        std::fprintf(stderr, "vela-settings: %s has no value\n", row.identifier().c_str());
        return exitNoValue;
    }
    std::puts(value->c_str());
    return exitSuccess;
}

void set(preferences::PSSpecifier& row, const std::string& text) {
    try {
        const auto value = KnownSettings::parseValue(row, text);
        row.performSetterWithValue(value);
        if (row.performGetter() != value)
            throw ProgramError(row.identifier() + " cannot be written");
    } catch (const std::invalid_argument& error) {
        throw ProgramError(row.identifier() + ": " + error.what());
    }
}

} // namespace

int runShellTool(const Options& options) {
    // Neither of these is ever torn down: the extension refers to them.
    auto& loop = *new foundation::VirtualRunLoop;
    foundation::RunLoop::setMain(&loop);
    preferences::PreferencesPort::setCurrent(
        new ApplicationPort(ApplicationList::make(options.applications, {})));
    foundation::ProcessInfo::shared().mainBundleIdentifier = "com.apple.Preferences";
    device::loadExtension(options.extension.value_or(device::installedExtension()));
    const KnownSettings known(makeRootPages(), [&loop] { loop.advance(foundation::RunLoop::frameInterval); });
    if (options.action == Options::Action::List) {
        list(known);
        return exitSuccess;
    }
    const auto row = known.find(options.key);
    if (!row)
        throw ProgramError("there is no setting \"" + options.key + "\": --list lists them");
    if (options.action == Options::Action::Get)
        return get(*row);
    set(*row, options.value);
    return exitSuccess;
}

} // namespace settings
