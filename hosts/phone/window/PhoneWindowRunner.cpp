#include "hosts/phone/window/PhoneWindowRunner.h"

#include "hosts/desktop/Addresses.h"
#include "hosts/device/InstalledFiles.h"
#include "hosts/device/LyricsGatewayProcess.h"
#include "hosts/device/ProgramError.h"
#include "hosts/phone/program/MusicSetup.h"
#include "hosts/phone/program/RunningPhone.h"
#include "hosts/phone/program/SettingsProgram.h"
#include "hosts/phone/window/PhoneWindow.h"
#include "hosts/script/ScriptPlayer.h"

#include <glib-unix.h>

#include <csignal>
#include <ctime>

namespace phone {

namespace {

long secondsEastOfUtc() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    return localtime_r(&now, &local) ? local.tm_gmtoff : 0;
}

/// The desktop's own choice of programs.
OutsideWorld desktopAround() {
    return {desktop::canOpenAddress,
            [](const std::string& address) { desktop::openAddress(address, nullptr); }};
}

PhoneConfiguration configurationOf(const Options& options) {
    PhoneConfiguration configuration = RunningPhone::configurationOf(options);
    // The pages are the extension's.
    if (options.loadExtension)
        configuration.settingsOpened = [settings = std::make_shared<SettingsProgram>(options)] {
            settings->show();
        };
    configuration.outside = desktopAround();
    configuration.wallClock = [] { return std::time(nullptr); };
    configuration.secondsFromUtc = secondsEastOfUtc();
    return configuration;
}

/// Where texts of lyrics may lie: the user's own folder for them, beside the music, and, with those songs,
/// the words of the songs that come with the program.
std::vector<std::filesystem::path> lyricDirectories(const Options& options) {
    std::vector<std::filesystem::path> directories{device::LyricsGatewayProcess::userDirectory()};
    if (const auto music = musicDirectory(options))
        directories.push_back(*music);
    if (!options.musicDirectory)
        directories.push_back(device::resourceDirectory() / "music" / "lyrics");
    return directories;
}

gboolean stopLoop(gpointer loop) {
    static_cast<foundation::GlibRunLoop*>(loop)->stop();
    return G_SOURCE_CONTINUE;
}

} // namespace

void runInWindow(const Options& options, const std::optional<script::Script>& script) {
    if (!gtk_init_check())
        throw device::ProgramError(
            "there is no display to open a window on: --headless --script FILE needs none, and "
            "GDK_BACKEND=broadway serves the window to a browser once gtk4-broadwayd runs");
    // All of these live until the process ends: the extension's timers and windows refer to them.
    auto& loop = *new foundation::GlibRunLoop;
    foundation::RunLoop::setMain(&loop);
    g_unix_signal_add(SIGINT, stopLoop, &loop);
    g_unix_signal_add(SIGTERM, stopLoop, &loop);
    auto& running = *new RunningPhone(options, configurationOf(options));
    auto& window = *new PhoneWindow(running.phone(), loop, options.screenSize, [&loop] { loop.stop(); });
    window.present();
    const device::LyricsGatewayProcess lyricsGateway(lyricDirectories(options));

    std::optional<script::ScriptError> failure;
    std::optional<script::ScriptPlayer> player;
    if (script) {
        player.emplace(*script, running.scriptTarget());
        player->start([&](const std::optional<script::ScriptError>& error) {
            failure = error;
            if (error || !options.keepOpen)
                loop.stop();
        });
    }
    loop.endTurn();
    loop.run();
    if (failure)
        throw *failure;
}

} // namespace phone
