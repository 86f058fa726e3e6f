#include "vela/nowplaying/NowPlayingHooks.h"

namespace vela::nowplaying {

void applicationDidChange(Object& self, Object* controller, std::optional<std::string> bundleIdentifier) {
    originalApplicationDidChange(self, controller, std::move(bundleIdentifier));
}

void playbackStateDidChange(Object& self, Object* controller, bool playing) {
    originalPlaybackStateDidChange(self, controller, playing);
}

void infoDidChange(Object& self, Object* controller, PropertyList info) {
    originalInfoDidChange(self, controller, std::move(info));
}

void elapsedTimeDidChange(Object& self, Object* controller, double elapsed) {
    originalElapsedTimeDidChange(self, controller, elapsed);
}

// No lyric is scrolled while the panel shows none.
void scrollLyric(Object&) {}

void launchCurrentNowPlayingApp(Object& self) {
    originalLaunchCurrentNowPlayingApp(self);
}

} // namespace vela::nowplaying
