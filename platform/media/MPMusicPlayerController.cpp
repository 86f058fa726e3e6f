#include "platform/media/MPMusicPlayerController.h"

#include "platform/media/MediaPort.h"

namespace media {

runtime::Class& MPMusicPlayerController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<MPMusicPlayerController>("MPMusicPlayerController", &Object::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(MPMusicPlayerController)

MPMusicPlayerController& MPMusicPlayerController::systemMusicPlayer() {
    static auto& player = *new MPMusicPlayerController; // never torn down
    return player;
}

void MPMusicPlayerController::setQueueWithItemCollection(const MPMediaItemCollection& collection) {
    if (MediaPort* port = MediaPort::current())
        port->setQueue(collection.items());
}

std::shared_ptr<MPMediaItem> MPMusicPlayerController::nowPlayingItem() const {
    const MediaPort* port = MediaPort::current();
    return port ? port->nowPlayingItem() : nullptr;
}

void MPMusicPlayerController::setNowPlayingItem(const std::shared_ptr<MPMediaItem>& item) {
    if (MediaPort* port = MediaPort::current())
        port->setNowPlayingItem(item);
}

void MPMusicPlayerController::prepareToPlay() {
    if (MediaPort* port = MediaPort::current())
        port->prepareToPlay();
}

void MPMusicPlayerController::play() {
    if (MediaPort* port = MediaPort::current())
        port->play();
}

void MPMusicPlayerController::pause() {
    if (MediaPort* port = MediaPort::current())
        port->pause();
}

void MPMusicPlayerController::skipToNextItem() {
    if (MediaPort* port = MediaPort::current())
        port->skipToNextItem();
}

void MPMusicPlayerController::skipToPreviousItem() {
    if (MediaPort* port = MediaPort::current())
        port->skipToPreviousItem();
}

} // namespace media
