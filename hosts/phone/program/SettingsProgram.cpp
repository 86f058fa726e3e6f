#include "hosts/phone/program/SettingsProgram.h"

#include "hosts/device/InstalledFiles.h"
#include "platform/foundation/FileManager.h"

#include <csignal>
#include <cstdio>

namespace phone {

namespace {

/// The program shows its window when it gets the signal; until it listens the signal is to be lost on it.
void ignoreSignal(gpointer) {
    signal(SIGUSR1, SIG_IGN);
}

} // namespace

SettingsProgram::SettingsProgram(const Options& options)
    : command_{device::installedProgram("vela-settings"), "--root",
               foundation::FileManager::shared().deviceRoot()} {
    if (options.extension)
        command_.insert(command_.end(), {"--extension", *options.extension});
}

SettingsProgram::~SettingsProgram() {
    if (watch_ != 0)
        g_source_remove(watch_);
}

void SettingsProgram::show() {
    if (process_ != 0)
        kill(process_, SIGUSR1);
    else
        start();
}

void SettingsProgram::start() {
    std::vector<gchar*> arguments;
    for (auto& argument : command_)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    GError* error = nullptr;
    if (!g_spawn_async(nullptr, arguments.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD, ignoreSignal, nullptr,
                       &process_, &error)) {
        std::fprintf(stderr, "vela-phone: the settings cannot be started: %s\n", error->message);
        g_error_free(error);
        process_ = 0;
        return;
    }
    watch_ = g_child_watch_add(
        process_, [](GPid, gint, gpointer self) { static_cast<SettingsProgram*>(self)->ended(); }, this);
}

void SettingsProgram::ended() {
    g_spawn_close_pid(process_);
    process_ = 0;
    watch_ = 0;
}

} // namespace phone
