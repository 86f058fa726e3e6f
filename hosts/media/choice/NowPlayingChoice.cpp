#include "hosts/media/choice/NowPlayingChoice.h"

#include "platform/foundation/Observers.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/MPUNowPlayingController.h"

#include <algorithm>
#include <cstdint>
#include <tuple>

namespace playback {

namespace {

constexpr double elapsedInterval = 1; // seconds

struct Player {
    std::shared_ptr<NowPlayingSource> source;
    bool playing = false;
    std::uint64_t lastHeard = 0; // when it started or stopped last, by the count of such events
    foundation::Handle observer;
};

} // namespace

struct NowPlayingChoice::State : std::enable_shared_from_this<State> {
    /// What of the chosen player is still to be reported, besides whether it plays.
    struct Pending {
        bool info = false;
        bool elapsed = false;
    };

    void changed(Player& player, NowPlayingSource::Change change);
    void noteStartsAndStops(Player& player);
    void reportLater();
    void report();
    void reportElapsed() const;
    void updateTimer();
    std::shared_ptr<NowPlayingSource> best() const;

    std::vector<std::unique_ptr<Player>> players;
    std::vector<std::shared_ptr<NowPlayingSource>> sources;
    std::shared_ptr<NowPlayingSource> chosen;
    std::uint64_t events = 0;
    bool radioStation = false; // as reported
    bool playing = false;
    Pending pending;
    bool reportUnderWay = false;
    bool elapsedFollowed = true;
    foundation::Handle timer;
    foundation::Observers<> observers;
};

NowPlayingChoice::NowPlayingChoice() : state_(std::make_shared<State>()) {}
NowPlayingChoice::~NowPlayingChoice() = default;

void NowPlayingChoice::add(std::shared_ptr<NowPlayingSource> source) {
    auto player = std::make_unique<Player>();
    Player& added = *player;
    added.source = source;
    added.observer = source->addObserver(
        [state = state_.get(), &added](NowPlayingSource::Change change) { state->changed(added, change); });
    state_->players.push_back(std::move(player));
    state_->sources.push_back(std::move(source));
    state_->noteStartsAndStops(added);
    state_->reportLater();
}

void NowPlayingChoice::remove(const NowPlayingSource& source) {
    std::erase_if(state_->players, [&](const auto& player) { return player->source.get() == &source; });
    std::erase_if(state_->sources, [&](const auto& each) { return each.get() == &source; });
    state_->reportLater();
}

const std::vector<std::shared_ptr<NowPlayingSource>>& NowPlayingChoice::sources() const {
    return state_->sources;
}

std::shared_ptr<NowPlayingSource> NowPlayingChoice::chosen() const {
    return state_->best();
}

void NowPlayingChoice::setElapsedFollowed(bool followed) {
    if (std::exchange(state_->elapsedFollowed, followed) == followed)
        return;
    if (followed && state_->chosen)
        state_->reportElapsed();
    state_->updateTimer();
}

foundation::Handle NowPlayingChoice::addObserver(std::function<void()> reported) {
    return state_->observers.add(std::move(reported));
}

std::shared_ptr<NowPlayingSource> NowPlayingChoice::State::best() const {
    std::shared_ptr<NowPlayingSource> best;
    std::tuple<bool, std::uint64_t> rank;
    for (const auto& player : players) {
        const std::tuple ranked{player->playing, player->lastHeard};
        if (player->source->nowPlayingInfo().isNil() || (best && ranked <= rank))
            continue;
        best = player->source;
        rank = ranked;
    }
    return best;
}

void NowPlayingChoice::State::noteStartsAndStops(Player& player) {
    const bool playing = player.source->isPlaying();
    if (playing != player.playing)
        player.lastHeard = ++events;
    player.playing = playing;
}

void NowPlayingChoice::State::changed(Player& player, NowPlayingSource::Change change) {
    noteStartsAndStops(player);
    if (player.source == chosen) {
        pending.info |= change == NowPlayingSource::Change::Info;
        pending.elapsed |= change == NowPlayingSource::Change::Elapsed;
    }
    reportLater();
}

// Changes come in bunches: another song is another title, another length and a leap. They are reported once.
void NowPlayingChoice::State::reportLater() {
    if (std::exchange(reportUnderWay, true))
        return;
    foundation::RunLoop::main().performOnMain([weak = weak_from_this()] {
        if (const auto state = weak.lock())
            state->report();
    });
}

void NowPlayingChoice::State::report() {
    reportUnderWay = false;
    const auto now = best();
    const bool otherPlayer = now != std::exchange(chosen, now);
    const bool radio = now && now->isRadioStation(), plays = now && now->isPlaying();
    const bool otherKind = radio != std::exchange(radioStation, radio);
    const bool startsOrStops = plays != std::exchange(playing, plays);
    // A stream that follows a song is news for whoever follows the playing state, too; and the information
    // holds the rate at which it plays.
    const bool tellsState = otherPlayer || otherKind || startsOrStops;
    const Pending due = std::exchange(pending, {});
    auto& controller = media::MPUNowPlayingController::sharedController();
    controller.setRadioStation(radio);
    if (otherPlayer)
        controller.applicationDidChange(now ? std::optional(now->bundleIdentifier()) : std::nullopt);
    if (tellsState)
        controller.playbackStateDidChange(plays);
    if (tellsState || due.info)
        controller.infoDidChange(now ? now->nowPlayingInfo() : foundation::PropertyList());
    if (tellsState || due.info || due.elapsed)
        reportElapsed();
    updateTimer();
    observers.notify();
}

void NowPlayingChoice::State::reportElapsed() const {
    media::MPUNowPlayingController::sharedController().elapsedTimeDidChange(chosen ? chosen->elapsed() : 0);
}

void NowPlayingChoice::State::updateTimer() {
    const bool runs = elapsedFollowed && chosen && chosen->isPlaying();
    if (runs == static_cast<bool>(timer))
        return;
    timer.reset();
    if (runs)
        timer = foundation::RunLoop::main().scheduleTimer(elapsedInterval, true, [this] { reportElapsed(); });
}

} // namespace playback
