// Which of several players is the one that now-playing controls show and command, and the reports of it.
//
// A player that plays comes before one that is paused; of those that play the one that started last, of those
// that are paused the one that was last heard. Players with nothing to play do not count. The chosen one is
// reported to MPUNowPlayingController: every change at once, the elapsed time once a second while it plays.
// Main thread only.
#pragma once

#include "hosts/media/NowPlayingSource.h"

#include <memory>
#include <vector>

namespace playback {

class NowPlayingChoice {
public:
    NowPlayingChoice();
    NowPlayingChoice(const NowPlayingChoice&) = delete;
    NowPlayingChoice& operator=(const NowPlayingChoice&) = delete;
    ~NowPlayingChoice();

    /// The choice keeps the player until it is taken away.
    void add(std::shared_ptr<NowPlayingSource> source);
    void remove(const NowPlayingSource& source);
    const std::vector<std::shared_ptr<NowPlayingSource>>& sources() const;

    /// Null when nothing plays or is paused anywhere.
    std::shared_ptr<NowPlayingSource> chosen() const;

    /// Whether the elapsed time is reported while nothing but time passes, which costs a wake-up a second; so
    /// it is at first. Whoever begins to follow it hears at once how it stands.
    void setElapsedFollowed(bool followed);
    /// Calls `reported` after each bunch of reports.
    foundation::Handle addObserver(std::function<void()> reported);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace playback
