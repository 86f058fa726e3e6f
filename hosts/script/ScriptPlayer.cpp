#include "hosts/script/ScriptPlayer.h"

#include "platform/foundation/RunLoop.h"

#include <algorithm>
#include <cmath>

namespace script {

namespace {

constexpr double eventInterval = foundation::RunLoop::frameInterval;
constexpr double eventsPerSecond = 60;
/// Taps have a finger of their own, so that they do not disturb the script's.
constexpr int tappingFinger = 0;

int stepsOf(const TouchMove& move) {
    return std::max(1, static_cast<int>(std::lround(move.seconds.value_or(0) * eventsPerSecond)));
}

struct DurationOf {
    double operator()(const Wait& wait) const { return wait.seconds; }
    double operator()(const TouchMove& move) const { return stepsOf(move) * eventInterval; }
    double operator()(const Tap&) const { return eventInterval; }
    template <class Other>
    double operator()(const Other&) const {
        return 0;
    }
};

} // namespace

double ScriptPlayer::durationOf(const Script& script) {
    double seconds = 0;
    for (const Command& command : script.commands)
        seconds += std::visit(DurationOf(), command.action);
    return seconds;
}

void ScriptPlayer::start(Finished finished) {
    finished_ = std::move(finished);
    continueAfter(0);
}

void ScriptPlayer::continueAfter(double seconds) {
    // A timer of no time at all ends the turn first: layout is done and completions have run when the next
    // command comes.
    timer_ = foundation::RunLoop::main().scheduleTimer(seconds, false, [this, seconds] {
        if (seconds > 0)
            continueAfter(0);
        else
            playNext();
    });
}

void ScriptPlayer::playNext() {
    if (next_ == script_.commands.size())
        return finish(std::nullopt);
    std::visit([this](const auto& action) { play(action); }, script_.commands[next_++].action);
}

void ScriptPlayer::proceed(const Failure& failure) {
    if (failure)
        finish(failure);
    else
        continueAfter(0);
}

void ScriptPlayer::finish(const std::optional<std::string>& failure) {
    timer_.reset();
    std::optional<ScriptError> error;
    if (failure)
        error.emplace(script_.file, script_.commands[next_ - 1].line, *failure);
    if (const Finished finished = std::exchange(finished_, nullptr))
        finished(error);
}

void ScriptPlayer::play(const Wait& wait) {
    continueAfter(wait.seconds);
}

void ScriptPlayer::play(const TouchDown& touch) {
    fingers_[touch.finger] = touch.to;
    proceed(target_.touchDown(touch.finger, touch.to));
}

void ScriptPlayer::play(const TouchUp& touch) {
    fingers_.erase(touch.finger);
    proceed(target_.touchUp(touch.finger));
}

void ScriptPlayer::play(const Tap& tap) {
    if (const Failure failure = target_.touchDown(tappingFinger, tap.at))
        return finish(failure);
    timer_ = foundation::RunLoop::main().scheduleTimer(eventInterval, false,
                                                       [this] { proceed(target_.touchUp(tappingFinger)); });
}

void ScriptPlayer::play(const TouchMove& touch) {
    auto& loop = foundation::RunLoop::main();
    drag_ = {touch.finger, fingers_[touch.finger], touch.to, stepsOf(touch), 0, loop.now()};
    fingers_[touch.finger] = touch.to;
    timer_ = loop.scheduleTimer(eventInterval, true, [this] { stepDrag(); });
}

void ScriptPlayer::stepDrag() {
    // In real time a beat may come late or not at all: the finger is then where it would be by now, so that
    // its speed stays the script's. It is never ahead of its time.
    const double elapsed = foundation::RunLoop::main().now() - drag_.begin;
    const int dueSteps =
        static_cast<int>(std::min<double>(std::floor(elapsed * eventsPerSecond), drag_.steps));
    drag_.stepsDone = std::max(drag_.stepsDone + 1, dueSteps);
    const double progress = static_cast<double>(drag_.stepsDone) / drag_.steps;
    const bool last = drag_.stepsDone == drag_.steps;
    const toolkit::Point point = last ? drag_.to
                                      : toolkit::Point{drag_.from.x + (drag_.to.x - drag_.from.x) * progress,
                                                       drag_.from.y + (drag_.to.y - drag_.from.y) * progress};
    const Failure failure = target_.touchMove(drag_.finger, point);
    if (last || failure)
        proceed(failure);
}

void ScriptPlayer::play(const AddMusic& music) {
    if (const Failure failure = target_.addMusic(music.path))
        return finish(failure);
    waitForMusic(0);
}

void ScriptPlayer::waitForMusic(double seconds) {
    timer_ = foundation::RunLoop::main().scheduleTimer(seconds, false, [this] {
        if (target_.isReadingMusic())
            waitForMusic(eventInterval);
        else
            continueAfter(0);
    });
}

} // namespace script
