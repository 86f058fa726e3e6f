#include "hosts/device/LyricsGatewayProcess.h"

#include "hosts/device/DeviceRoot.h"
#include "hosts/device/InstalledFiles.h"
#include "platform/foundation/FileManager.h"
#include "platform/foundation/RunLoop.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <string_view>
#include <utility>

#include <glib-unix.h>
#include <sys/prctl.h>

namespace device {

namespace {

constexpr const char* configuration = "/Library/Application Support/Vela/configuration.plist";
constexpr std::string_view ownAddress = "http://127.0.0.1:";
constexpr double longestPause = 60; // seconds
constexpr int greatestPort = 65535;

/// A home screen that crashes takes its gateway along.
void endWithParent(gpointer) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
}

} // namespace

std::filesystem::path LyricsGatewayProcess::userDirectory() {
    return DeviceRoot::userRoot().parent_path() / "lyrics";
}

std::optional<int> LyricsGatewayProcess::configuredPort() {
    const foundation::PropertyList entries = foundation::FileManager::shared()
                                                 .readDictionary(configuration)
                                                 .value_or(foundation::PropertyList::Dictionary());
    const std::string* text = entries["Lyrics"].string();
    std::string_view address = text ? *text : std::string_view();
    if (!address.starts_with(ownAddress))
        return std::nullopt;
    address.remove_prefix(ownAddress.size());
    while (address.ends_with('/'))
        address.remove_suffix(1);
    int port = 0;
    const char* end = address.data() + address.size();
    const auto number = std::from_chars(address.data(), end, port);
    const bool sound = number.ec == std::errc() && number.ptr == end && port > 0 && port <= greatestPort;
    return sound ? std::optional(port) : std::nullopt;
}

LyricsGatewayProcess::LyricsGatewayProcess(const std::vector<std::filesystem::path>& directories,
                                           std::function<void()> settled)
    : settled_(std::move(settled)) {
    const auto port = configuredPort();
    if (!port) {
        settle();
        return;
    }
    command_ = {installedProgram("vela-lyrics-gateway"), "--port", std::to_string(*port)};
    for (const auto& directory : directories)
        command_.insert(command_.end(), {"--directory", directory});
    start();
}

LyricsGatewayProcess::~LyricsGatewayProcess() {
    for (const guint source : {watch_, outputWatch_})
        if (source != 0)
            g_source_remove(source);
    if (process_ != 0)
        kill(process_, SIGTERM);
}

void LyricsGatewayProcess::start() {
    std::vector<gchar*> arguments;
    for (auto& argument : command_)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const auto flags = GSpawnFlags(G_SPAWN_DO_NOT_REAP_CHILD | G_SPAWN_STDERR_TO_DEV_NULL);
    int output = -1;
    GError* error = nullptr;
    if (!g_spawn_async_with_pipes(nullptr, arguments.data(), nullptr, flags, endWithParent, nullptr,
                                  &process_, nullptr, &output, nullptr, &error)) {
        std::fprintf(stderr, "the lyrics gateway cannot be started: %s\n", error->message);
        g_error_free(error);
        process_ = 0;
        return settle();
    }
    watch_ = g_child_watch_add(
        process_, [](GPid, gint, gpointer self) { static_cast<LyricsGatewayProcess*>(self)->ended(); }, this);
    listenTo(output);
}

/// It says its address when it stands, and nothing when it ends before: another one has the port.
void LyricsGatewayProcess::listenTo(int output) {
    outputWatch_ = g_unix_fd_add_full(
        G_PRIORITY_DEFAULT, output, GIOCondition(G_IO_IN | G_IO_HUP),
        [](gint, GIOCondition, gpointer self) -> gboolean {
            static_cast<LyricsGatewayProcess*>(self)->heard();
            return G_SOURCE_REMOVE;
        },
        this, nullptr);
    output_ = foundation::FileDescriptor(output);
}

void LyricsGatewayProcess::heard() {
    outputWatch_ = 0;
    output_ = {};
    settle();
}

void LyricsGatewayProcess::settle() {
    if (settled_)
        foundation::RunLoop::main().performOnMain(std::exchange(settled_, nullptr));
}

void LyricsGatewayProcess::ended() {
    g_spawn_close_pid(process_);
    process_ = 0;
    watch_ = 0;
    again_ = foundation::RunLoop::main().scheduleTimer(pause_, false, [this] { start(); });
    pause_ = std::min(2 * pause_, longestPause);
}

} // namespace device
