#include "hosts/settings/window/SettingsWindowRunner.h"

#include "hosts/device/ExtensionLoader.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/device/ProgramError.h"
#include "hosts/settings/program/Pages.h"
#include "hosts/settings/window/FileWatch.h"
#include "hosts/settings/window/Style.h"
#include "hosts/settings/window/ThemeIcon.h"
#include "hosts/settings/window/WindowPort.h"
#include "platform/foundation/GlibRunLoop.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/toolkit/text/Font.h"
#include "platform/toolkit/windows/WindowServer.h"

#include <glib-unix.h>

#include <csignal>

namespace settings {

namespace {

constexpr const char* preferencesFile = "/var/mobile/Library/Preferences/org.lanternhub.vela3.plist";

gboolean stopLoop(gpointer loop) {
    static_cast<foundation::GlibRunLoop*>(loop)->stop();
    return G_SOURCE_CONTINUE;
}

gboolean presentWindow(gpointer window) {
    static_cast<SettingsWindow*>(window)->present();
    return G_SOURCE_CONTINUE;
}

/// Without a graphics card the processor would have to stand in for one, and merely beginning that takes
/// longer than painting every page.
void chooseRenderer() {
    std::error_code error;
    if (!std::filesystem::exists("/dev/dri", error))
        g_setenv("GSK_RENDERER", "cairo", FALSE);
}

void startToolkit() {
    chooseRenderer();
    // What the desktop and screen readers call the program.
    g_set_prgname("vela-settings");
    g_set_application_name("Settings");
    if (!gtk_init_check())
        throw device::ProgramError(
            "there is no display to open a window on: --list, --get and --set need none");
    adw_init();
    addStyle();
    toolkit::setFontDirectory((device::resourceDirectory() / "fonts").c_str(), false);
    foundation::ProcessInfo::shared().mainBundleIdentifier = "com.apple.Preferences";
}

std::shared_ptr<preferences::PSViewController> firstPage(const Options& options) {
    device::loadExtension(options.extension.value_or(device::installedExtension()));
    const auto pages = makeRootPages();
    if (pages.empty())
        throw device::ProgramError("the extension brings no settings pages");
    return pages.front();
}

} // namespace

void runInWindow(const Options& options) {
    startToolkit();
    // All of these live until the process ends: pages and widgets refer to them.
    auto& loop = *new foundation::GlibRunLoop;
    foundation::RunLoop::setMain(&loop);
    toolkit::WindowServer::shared().attachToMainRunLoop();
    auto& navigation = *new std::shared_ptr(std::make_shared<preferences::UINavigationController>());
    auto& window = *new SettingsWindow(*navigation, [&loop] { loop.stop(); });
    preferences::PreferencesPort::setCurrent(
        new WindowPort(window, ApplicationList::make(options.applications, themeIcon)));
    g_unix_signal_add(SIGINT, stopLoop, &loop);
    g_unix_signal_add(SIGTERM, stopLoop, &loop);
    // Whoever has started the program asks so for its window again.
    g_unix_signal_add(SIGUSR1, presentWindow, &window);

    navigation->pushViewController(firstPage(options), false);
    const FileWatch watch(preferencesFile, [&window] { window.refresh(); });
    window.present();
    loop.endTurn();
    loop.run();
    // What is still held back is to be stored.
    navigation->topViewController()->viewWillDisappear(false);
}

} // namespace settings
