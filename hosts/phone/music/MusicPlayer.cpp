#include "hosts/phone/music/MusicPlayer.h"

#include "platform/foundation/Log.h"
#include "platform/media/NowPlayingInfo.h"

#include <algorithm>

using foundation::PropertyList;
using media::RemoteCommand;
using playback::PlaybackState;

namespace phone {

namespace {

constexpr double restartAfter = 3; // seconds
/// After so many songs in a row that cannot be played the player gives up: their disk has probably gone.
constexpr int mostFailures = 10;

bool isSameSong(const media::MPMediaItem& a, const media::MPMediaItem& b) {
    return &a == &b || (a.persistentID() != 0 && a.persistentID() == b.persistentID());
}

} // namespace

MusicPlayer::MusicPlayer(std::shared_ptr<playback::PlaybackEngine> engine)
    : engine_(std::move(engine)), queue_(std::make_shared<const media::MediaItems>()) {
    engine_->setEvents({[this](double) { durationChanged(); },
                        [this](const std::string& title) { streamTitleChanged(title); }, [this] { ended(); },
                        [this](const std::string& reason) { failed(reason); }});
}

MusicPlayer::~MusicPlayer() {
    engine_->setEvents({});
}

// ---- Songs

void MusicPlayer::setQueue(media::SharedMediaItems items) {
    queue_ = std::move(items);
    index_.reset();
    failures_ = 0;
}

void MusicPlayer::setNowPlayingItem(const std::shared_ptr<media::MPMediaItem>& item) {
    if (!item)
        return;
    const auto found = std::find_if(queue_->begin(), queue_->end(),
                                    [&](const auto& queued) { return queued && isSameSong(*queued, *item); });
    if (found != queue_->end())
        choose(static_cast<std::size_t>(found - queue_->begin()));
}

void MusicPlayer::choose(std::size_t index) {
    stream_.reset();
    index_ = index;
    item_ = (*queue_)[index];
    load();
    if (wanted_)
        engine_->play();
    notify({Change::Playing, Change::Info, Change::Elapsed});
}

void MusicPlayer::stopAtFirst() {
    wanted_ = false;
    choose(0);
}

void MusicPlayer::prepareToPlay() {
    if (!stream_ && !index_ && !queue_->empty())
        choose(0);
    else if (!loaded_)
        load();
}

std::string MusicPlayer::uri() const {
    if (stream_)
        return stream_->station.url;
    const auto* address = item_ ? item_->storedProperty(media::MPMediaItemPropertyAssetURL) : nullptr;
    return address && address->string() ? *address->string() : "";
}

void MusicPlayer::load() {
    loaded_ = stream_ || item_;
    failed_ = false;
    if (stream_ && stream_->silent)
        engine_->unload();
    else if (loaded_)
        engine_->load(uri(), taggedDuration());
}

void MusicPlayer::play() {
    if (isPlaying())
        return;
    if (stream_)
        loaded_ = false; // it has gone on meanwhile
    wanted_ = true;
    prepareToPlay();
    wanted_ = loaded_;
    engine_->play();
    notify({Change::Playing});
}

void MusicPlayer::pause() {
    wanted_ = false;
    engine_->pause();
    notify({Change::Playing});
}

void MusicPlayer::skipToNextItem() {
    if (stream_ || queue_->empty())
        return;
    const std::size_t next = index_ ? *index_ + 1 : 0;
    if (next < queue_->size())
        choose(next);
    else
        stopAtFirst();
}

void MusicPlayer::skipToPreviousItem() {
    if (stream_ || !item_)
        return;
    if (!index_ || *index_ == 0 || elapsed() > restartAfter)
        seek(0);
    else
        choose(*index_ - 1);
}

// ---- Radio

void MusicPlayer::playStation(const RadioStation& station) {
    tuneIn({station, {}, false});
}

void MusicPlayer::playSilentStream(const StreamTitle& title) {
    tuneIn({{}, title, true});
}

void MusicPlayer::tuneIn(Stream stream) {
    stream_ = std::move(stream);
    wanted_ = true;
    load();
    engine_->play();
    notify({Change::Playing, Change::Info, Change::Elapsed});
}

std::optional<RadioStation> MusicPlayer::station() const {
    return stream_ && !stream_->silent ? std::optional(stream_->station) : std::nullopt;
}

// ---- What the engine tells

void MusicPlayer::ended() {
    if (stream_)
        return failed("the stream has ended");
    failures_ = 0;
    skipToNextItem();
}

void MusicPlayer::failed(const std::string& reason) {
    foundation::log("Music: " + uri() + " cannot be played: " + reason);
    loaded_ = false;
    if (wanted_ && !stream_ && ++failures_ < mostFailures)
        return skipToNextItem();
    failed_ = std::exchange(wanted_, false);
    failures_ = 0;
    notify({Change::Playing});
}

void MusicPlayer::streamTitleChanged(const std::string& text) {
    if (!stream_)
        return;
    stream_->title = StreamTitle::parse(text);
    notify({Change::Info});
}

void MusicPlayer::durationChanged() {
    if (!stream_ && taggedDuration() <= 0)
        notify({Change::Info});
}

// ---- What others see of it

bool MusicPlayer::isPlaying() const {
    return stream_ && stream_->silent ? wanted_ : engine_->state() == PlaybackState::Playing;
}

double MusicPlayer::taggedDuration() const {
    const auto* duration =
        stream_ || !item_ ? nullptr : item_->storedProperty(media::MPMediaItemPropertyPlaybackDuration);
    return duration ? duration->doubleValue() : 0;
}

PropertyList MusicPlayer::nowPlayingInfo() const {
    if (!stream_ && !item_)
        return {};
    PropertyList::Dictionary info = stream_ ? streamInfo() : songInfo();
    info[media::kMRMediaRemoteNowPlayingInfoElapsedTime] = elapsed();
    info[media::kMRMediaRemoteNowPlayingInfoPlaybackRate] = isPlaying() ? 1.0 : 0.0;
    return info;
}

PropertyList::Dictionary MusicPlayer::songInfo() const {
    static constexpr std::pair<const char*, const char*> copied[]{
        {media::MPMediaItemPropertyTitle, media::kMRMediaRemoteNowPlayingInfoTitle},
        {media::MPMediaItemPropertyArtist, media::kMRMediaRemoteNowPlayingInfoArtist},
        {media::MPMediaItemPropertyAlbumTitle, media::kMRMediaRemoteNowPlayingInfoAlbum},
        {media::MPMediaItemPropertyPersistentID, media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier},
    };
    PropertyList::Dictionary info;
    for (const auto& [property, key] : copied)
        if (const PropertyList* value = item_->storedProperty(property))
            info[key] = *value;
    if (const double duration = taggedDuration() > 0 ? taggedDuration() : engine_->duration(); duration > 0)
        info[media::kMRMediaRemoteNowPlayingInfoDuration] = duration;
    return info;
}

PropertyList::Dictionary MusicPlayer::streamInfo() const {
    return {{media::kMRMediaRemoteNowPlayingInfoTitle, stream_->title.title},
            {media::kMRMediaRemoteNowPlayingInfoArtist, stream_->title.artist},
            {media::kMRMediaRemoteNowPlayingInfoRadioStationName, stream_->station.name}};
}

double MusicPlayer::elapsed() const {
    return engine_->position();
}

void MusicPlayer::perform(RemoteCommand command) {
    switch (command) {
    case RemoteCommand::Play:
        return play();
    case RemoteCommand::Pause:
        return pause();
    case RemoteCommand::TogglePlayPause:
        return isPlaying() ? pause() : play();
    case RemoteCommand::NextTrack:
        return skipToNextItem();
    case RemoteCommand::PreviousTrack:
        return skipToPreviousItem();
    }
}

void MusicPlayer::seek(double seconds) {
    engine_->seek(seconds);
    notify({Change::Elapsed});
}

void MusicPlayer::launch() {
    if (launch_)
        launch_();
}

foundation::Handle MusicPlayer::addObserver(std::function<void(Change)> changed) {
    return observers_.add(std::move(changed));
}

void MusicPlayer::notify(std::initializer_list<Change> changes) {
    for (const Change change : changes)
        observers_.notify(change);
}

} // namespace phone
