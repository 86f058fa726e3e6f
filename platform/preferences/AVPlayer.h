// A film at an address, and whether it is to be playing. The host that shows it does the playing.
#pragma once

#include "platform/runtime/Class.h"

#include <functional>
#include <string>

namespace preferences {

class AVPlayer : public runtime::Object {
    RUNTIME_CLASS()
public:
    explicit AVPlayer(std::string url) : url_(std::move(url)) {}

    const std::string& url() const { return url_; }
    bool isPlaying() const { return playing_; }
    void play() { setPlaying(true); }
    void pause() { setPlaying(false); }

    /// The host's: called when isPlaying() has changed. Empty for nobody.
    void setPlayingChangedHandler(std::function<void()> handler) { playingChanged_ = std::move(handler); }

private:
    void setPlaying(bool playing);

    std::string url_;
    bool playing_ = false;
    std::function<void()> playingChanged_;
};

} // namespace preferences
