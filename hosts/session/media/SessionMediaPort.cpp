#include "hosts/session/media/SessionMediaPort.h"

#include "platform/foundation/Log.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/NowPlayingInfo.h"

#include <algorithm>
#include <cmath>
#include <utility>

using media::RemoteCommand;

namespace session {

namespace {

/// By this name the product knows the system's own player.
constexpr const char* ownPlayer = "com.apple.Music";

} // namespace

SessionMediaPort::SessionMediaPort(const playback::MusicLibrary& library, playback::NowPlayingChoice& players)
    : library_(library), players_(players) {
    playersObserver_ = players_.addObserver([this] { followVolume(); });
    setCurrent(this);
    tellVolume(volume_);
}

SessionMediaPort::~SessionMediaPort() {
    if (current() == this)
        setCurrent(nullptr);
}

std::shared_ptr<playback::NowPlayingSource>
SessionMediaPort::sourceOf(const std::string& bundleIdentifier) const {
    if (bundleIdentifier == ownPlayer)
        return players_.chosen();
    const auto& sources = players_.sources();
    const auto found = std::ranges::find_if(
        sources, [&](const auto& source) { return source->bundleIdentifier() == bundleIdentifier; });
    return found == sources.end() ? nullptr : *found;
}

std::shared_ptr<playback::MprisPlayer> SessionMediaPort::player() const {
    return std::static_pointer_cast<playback::MprisPlayer>(players_.chosen());
}

std::optional<std::string> SessionMediaPort::playerName(const std::string& bundleIdentifier) const {
    const auto source = sourceOf(bundleIdentifier);
    return source ? std::optional(source->displayName()) : std::nullopt;
}

// ---- The library

std::vector<std::uint8_t> SessionMediaPort::artworkData(std::int64_t persistentID) const {
    return library_.artworkData(persistentID);
}

std::optional<std::string> SessionMediaPort::lyrics(std::int64_t persistentID) const {
    return library_.lyrics(persistentID);
}

// ---- Songs for the player

void SessionMediaPort::setQueue(const media::MediaItems& items) {
    queue_ = items;
    queueIsNew_ = true;
    next_.reset();
}

void SessionMediaPort::setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) {
    if (item && std::ranges::find(queue_, item) != queue_.end())
        next_ = item;
}

std::shared_ptr<media::MPMediaItem> SessionMediaPort::nowPlayingItem() const {
    const auto chosen = players_.chosen();
    if (!chosen)
        return nullptr;
    const auto info = chosen->nowPlayingInfo();
    return library_.song(info[media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier].integerValue());
}

void SessionMediaPort::prepareToPlay() {
    if (queueIsNew_ && !next_ && !queue_.empty())
        next_ = queue_.front();
}

void SessionMediaPort::play() {
    prepareToPlay();
    queueIsNew_ = false;
    if (const auto song = std::exchange(next_, nullptr))
        hand(*song);
    else
        perform(RemoteCommand::Play);
}

void SessionMediaPort::hand(const media::MPMediaItem& song) {
    const auto* address = song.storedProperty(media::MPMediaItemPropertyAssetURL);
    const auto chosen = player();
    if (chosen && address && address->string())
        chosen->open(*address->string(), [this] { sayThatSongsAreRefused(); });
    else
        sayThatSongsAreRefused();
}

void SessionMediaPort::sayThatSongsAreRefused() {
    if (!std::exchange(refusalIsSaid_, true))
        foundation::log("vela-session: no player takes the song that was chosen; it is not played");
}

// ---- The player

void SessionMediaPort::perform(RemoteCommand command) {
    if (const auto chosen = players_.chosen())
        chosen->perform(command);
}

void SessionMediaPort::seek(double seconds) {
    if (const auto chosen = players_.chosen(); chosen && std::isfinite(seconds))
        chosen->seek(std::max(0.0, seconds));
}

void SessionMediaPort::setVolume(double volume) {
    const auto chosen = players_.chosen();
    if (!chosen || !std::isfinite(volume))
        return;
    const double wanted = std::clamp(volume, 0.0, 1.0);
    tellVolume(wanted);
    chosen->setVolume(wanted);
}

void SessionMediaPort::followVolume() {
    const auto chosen = player();
    if (const auto volume = chosen ? chosen->volume() : std::nullopt; volume && *volume != volume_)
        tellVolume(*volume);
}

void SessionMediaPort::tellVolume(double volume) {
    volume_ = volume;
    media::MPUNowPlayingController::sharedController().volumeDidChange(volume);
}

void SessionMediaPort::launchApplication(const std::string& bundleIdentifier) {
    if (const auto source = sourceOf(bundleIdentifier))
        source->launch();
}

} // namespace session
