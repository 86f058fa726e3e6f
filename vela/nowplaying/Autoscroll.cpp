#include "vela/nowplaying/Autoscroll.h"

#include "platform/foundation/RunLoop.h"
#include "vela/nowplaying/NowPlayingState.h"
#include "vela/nowplaying/lyricView.h"
#include "vela/panels/rightController.h"
#include "vela/startup/ModuleState.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/WatchedSwitch.h"

#include <cmath>
#include <utility>

namespace vela::nowplaying {

namespace {

constexpr double framesToClose = 100;
constexpr double framesPerSecond = 60;
constexpr double sameMoment = 1e-9; // seconds: times closer than this are one

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

/// The number of the latest frame at a run loop's time.
double frameAt(double time) {
    return std::floor((time + sameMoment) * framesPerSecond);
}

void step() {
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

/// Everything that steps change: where two are the same, so are all that follow.
std::pair<float, double> position() {
    const auto& right = moduleState().right;
    return {nowPlayingState().now, right ? right->lyric()->contentOffset().y : 0};
}

} // namespace

void scrollLyric(runtime::Object&) {
    step();
}

void startAutoscroll(runtime::Object& controls) {
    NowPlayingState& state = nowPlayingState();
    if (state.displayLink)
        return;
    state.displayLink = toolkit::CADisplayLink::displayLinkWithTarget(controls, "scrollLyric");
    state.displayLink->addToRunLoop(foundation::RunLoop::main(), toolkit::RunLoopMode::Common);
    const auto& right = moduleState().right;
    setLyricShown(right && !right->isHidden());
}

void stopAutoscroll() {
    auto& link = nowPlayingState().displayLink;
    catchUpAutoscroll();
    if (link)
        link->invalidate();
    link = nullptr;
}

void setLyricShown(bool shown) {
    NowPlayingState& state = nowPlayingState();
    if (!state.displayLink || state.displayLink->isPaused() != shown)
        return;
    if (shown)
        catchUpAutoscroll();
    else
        state.stepped = foundation::RunLoop::main().now();
    state.displayLink->setPaused(!shown);
}

void catchUpAutoscroll() {
    NowPlayingState& state = nowPlayingState();
    if (!state.displayLink || !state.displayLink->isPaused())
        return;
    const double now = foundation::RunLoop::main().now();
    double frames = frameAt(now) - frameAt(std::exchange(state.stepped, now));
    for (auto before = position(); frames > 0; --frames) {
        step();
        if (position() == before)
            return;
        before = position();
    }
}

} // namespace vela::nowplaying
