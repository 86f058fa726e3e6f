#include "vela/nowplaying/Autoscroll.h"

#include "vela/nowplaying/NowPlayingState.h"
#include "vela/nowplaying/lyricView.h"
#include "vela/panels/rightController.h"
#include "vela/startup/ModuleState.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/WatchedSwitch.h"

#include <cmath>

namespace vela::nowplaying {

namespace {

constexpr double framesToClose = 100;

bool isAutoscrollOn() {
    static auto& autoscroll = *new WatchedSwitch(keys::autoscroll); // never torn down
    return autoscroll.isOn();
}

/// Where the text should stand, in points. The precisions are those in which the rest of the panel reckons.
float targetOffset(const NowPlayingState& state, const lyricView& lyric) {
    const float part = state.elapsed / state.songDuration;
    const double way = lyric.contentSize().height - lyric.frame().height;
    return static_cast<float>(part * way);
}

} // namespace

void scrollLyric(runtime::Object&) {
    NowPlayingState& state = nowPlayingState();
    const auto& right = moduleState().right;
    if (!right || !isAutoscrollOn() || !(state.songDuration > 0))
        return;
    lyricView& lyric = *right->lyric();
    if (!(lyric.contentSize().height > 0))
        return;
    const float target = targetOffset(state, lyric);
    if (!(target > 0) || !std::isfinite(target)) // as it is for a duration next to nothing
        return;
    const double offset = lyric.contentOffset().y;
    if (!lyric.canAutoScroll() || !lyric.isScrollEnabled()) {
        state.now = static_cast<float>(offset);
        return;
    }
    state.now = static_cast<float>(state.now + (target - offset) / framesToClose);
    lyric.setContentOffset({0, state.now});
}

} // namespace vela::nowplaying
