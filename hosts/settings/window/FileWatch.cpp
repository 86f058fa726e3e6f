#include "hosts/settings/window/FileWatch.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/RunLoop.h"

namespace settings {

namespace {
/// Seconds; several changes within are told as one.
constexpr double quietTime = 0.05;
} // namespace

FileWatch::FileWatch(const std::string& devicePath, std::function<void()> changed)
    : changed_(std::move(changed)) {
    const auto path = foundation::FileManager::shared().realPath(devicePath);
    if (!path)
        return;
    GFile* file = g_file_new_for_path(path->c_str());
    monitor_ = g_file_monitor_file(file, G_FILE_MONITOR_WATCH_MOVES, nullptr, nullptr);
    g_object_unref(file);
    if (monitor_)
        g_signal_connect_swapped(monitor_, "changed", G_CALLBACK(+[](FileWatch* self) { self->tellSoon(); }),
                                 this);
}

FileWatch::~FileWatch() {
    if (!monitor_)
        return;
    g_signal_handlers_disconnect_by_data(monitor_, this);
    g_object_unref(monitor_);
}

void FileWatch::tellSoon() {
    timer_ = foundation::RunLoop::main().scheduleTimer(quietTime, false, changed_);
}

} // namespace settings
