#include "hosts/phone/music/PhoneMediaPort.h"

#include "platform/media/CoverStore.h"
#include "platform/media/MPUNowPlayingController.h"

#include <algorithm>
#include <cmath>

using media::RemoteCommand;

namespace phone {

PhoneMediaPort::PhoneMediaPort(std::shared_ptr<playback::PlaybackEngine> engine,
                               std::shared_ptr<playback::MusicLibrary> library, double volume,
                               Actions actions)
    : player_(std::make_shared<MusicPlayer>(std::move(engine))),
      library_(std::move(library)),
      volume_(volume),
      actions_(std::move(actions)) {
    player_->setLaunchHandler(actions_.openPlayer);
    players_.add(player_);
    setCurrent(this);
    volumeChanged(volume);
    media::CoverStore::shared().clear();
    if (library_)
        libraryObserver_ = library_->addObserver([this] {
            if (!library_->isScanning())
                media::CoverStore::shared().clear();
        });
}

PhoneMediaPort::~PhoneMediaPort() {
    if (current() == this)
        setCurrent(nullptr);
}

void PhoneMediaPort::volumeChanged(double volume) {
    volume_ = volume;
    player_->setVolume(volume);
    media::MPUNowPlayingController::sharedController().volumeDidChange(volume);
}

void PhoneMediaPort::playFromLibrary(const std::shared_ptr<media::MPMediaItem>& item) {
    player_->setQueue(songs());
    player_->setNowPlayingItem(item);
    player_->play();
}

// ---- The library

media::SharedMediaItems PhoneMediaPort::songs() const {
    return library_ ? library_->songs() : noSongs_;
}

std::vector<std::uint8_t> PhoneMediaPort::artworkData(std::int64_t persistentID) const {
    return library_ ? library_->artworkData(persistentID) : std::vector<std::uint8_t>();
}

std::optional<std::string> PhoneMediaPort::lyrics(std::int64_t persistentID) const {
    return library_ ? library_->lyrics(persistentID) : std::nullopt;
}

// ---- The phone's player

void PhoneMediaPort::setQueue(const media::MediaItems& items) {
    player_->setQueue(std::make_shared<const media::MediaItems>(items));
}

void PhoneMediaPort::setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) {
    player_->setNowPlayingItem(item);
}

std::shared_ptr<media::MPMediaItem> PhoneMediaPort::nowPlayingItem() const {
    return player_->nowPlayingItem();
}

void PhoneMediaPort::prepareToPlay() {
    player_->prepareToPlay();
}

void PhoneMediaPort::play() {
    player_->play();
}

void PhoneMediaPort::pause() {
    player_->pause();
}

void PhoneMediaPort::skipToNextItem() {
    player_->skipToNextItem();
}

void PhoneMediaPort::skipToPreviousItem() {
    player_->skipToPreviousItem();
}

// ---- Whatever plays

void PhoneMediaPort::perform(RemoteCommand command) {
    if (const auto chosen = players_.chosen())
        return chosen->perform(command);
    const bool starts = command == RemoteCommand::Play || command == RemoteCommand::TogglePlayPause;
    if (const auto all = songs(); starts && !all->empty())
        playFromLibrary(all->front());
}

void PhoneMediaPort::seek(double seconds) {
    if (const auto chosen = players_.chosen(); chosen && std::isfinite(seconds))
        chosen->seek(std::max(0.0, seconds));
}

void PhoneMediaPort::setVolume(double volume) {
    if (!std::isfinite(volume))
        return;
    const double wanted = std::clamp(volume, 0.0, 1.0);
    if (actions_.setVolume)
        actions_.setVolume(wanted);
    // The phone's own player takes the phone's volume; another application hears of it here.
    if (const auto chosen = players_.chosen(); chosen && chosen != player_)
        chosen->setVolume(wanted);
}

void PhoneMediaPort::launchApplication(const std::string& bundleIdentifier) {
    for (const auto& source : players_.sources())
        if (source->bundleIdentifier() == bundleIdentifier)
            return source->launch();
}

} // namespace phone
