// The phone's own music player.
//
// Without a host's player behind it every call does nothing.
#pragma once

#include "platform/media/MPMediaItemCollection.h"

namespace media {

class MPMusicPlayerController : public runtime::Object {
    RUNTIME_CLASS()
public:
    /// The player of the music application; one for the process, never torn down.
    static MPMusicPlayerController& systemMusicPlayer();

    /// setQueueWithItemCollection:
    void setQueueWithItemCollection(const MPMediaItemCollection& collection);
    /// Null when nothing is to be played.
    std::shared_ptr<MPMediaItem> nowPlayingItem() const;
    void setNowPlayingItem(const std::shared_ptr<MPMediaItem>& item);
    void prepareToPlay();
    void play();
    void pause();
    void skipToNextItem();
    void skipToPreviousItem();
};

} // namespace media
