// A page that plays a film over the whole window.
#pragma once

#include "platform/preferences/AVPlayer.h"
#include "platform/toolkit/views/UIViewController.h"

#include <memory>

namespace preferences {

class AVPlayerViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    /// Null until it is set.
    const std::shared_ptr<AVPlayer>& player() const { return player_; }
    void setPlayer(std::shared_ptr<AVPlayer> player) { player_ = std::move(player); }

private:
    std::shared_ptr<AVPlayer> player_;
};

} // namespace preferences
