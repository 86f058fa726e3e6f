#include "hosts/media/mpris/MprisPlayer.h"

#include "hosts/media/mpris/BusCalls.h"
#include "hosts/media/mpris/MprisNames.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/NowPlayingInfo.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace playback {

namespace {

constexpr double slowestRate = 0.01;
constexpr double fastestRate = 100;
constexpr double longestPosition = 1e9; // seconds
constexpr std::size_t longestIdentifier = 255;

/// Whether a text is fit to stand for an application: part of a file's name, and no path.
bool isIdentifier(std::string_view text) {
    return !text.empty() && text.size() <= longestIdentifier && text.front() != '.' &&
           std::all_of(text.begin(), text.end(), [](unsigned char character) {
               return g_ascii_isalnum(character) || character == '.' || character == '-' || character == '_';
           });
}

const char* methodFor(media::RemoteCommand command) {
    switch (command) {
    case media::RemoteCommand::Play:
        return "Play";
    case media::RemoteCommand::Pause:
        return "Pause";
    case media::RemoteCommand::TogglePlayPause:
        return "PlayPause";
    case media::RemoteCommand::NextTrack:
        return "Next";
    case media::RemoteCommand::PreviousTrack:
        return "Previous";
    }
    return "Pause";
}

Variant entryOf(GVariant* properties, const char* name) {
    return Variant(g_variant_lookup_value(properties, name, nullptr));
}

/// The only value of an answer, out of its box, if it is of that type.
Variant valueIn(GVariant* answer, const char* type) {
    if (!answer || !g_variant_is_of_type(answer, G_VARIANT_TYPE_TUPLE) || g_variant_n_children(answer) != 1)
        return nullptr;
    Variant value(g_variant_get_child_value(answer, 0));
    return g_variant_is_of_type(value.get(), G_VARIANT_TYPE(type)) ? std::move(value) : nullptr;
}

} // namespace

MprisPlayer::MprisPlayer(GDBusConnection* connection, std::string name, const std::string& owner,
                         SongLookup lookUp)
    : connection_(G_DBUS_CONNECTION(g_object_ref(connection)), g_object_unref),
      cancellable_(g_cancellable_new(), g_object_unref),
      name_(std::move(name)),
      owner_(owner),
      lookUp_(std::move(lookUp)) {
    listen();
    readProperties(mpris::applicationInterface);
    readProperties(mpris::playerInterface);
}

MprisPlayer::~MprisPlayer() {
    g_cancellable_cancel(cancellable_.get());
}

void MprisPlayer::listen() {
    signals_.push_back(subscribe(connection_.get(),
                                 {owner_, mpris::path, mpris::propertiesInterface, "PropertiesChanged"},
                                 [this](GVariant* arguments) { propertiesChanged(arguments); }));
    signals_.push_back(subscribe(connection_.get(), {owner_, mpris::path, mpris::playerInterface, "Seeked"},
                                 [this](GVariant* arguments) {
                                     if (const auto position = numberIn(valueIn(arguments, "x").get()))
                                         setPosition(*position / 1e6);
                                 }));
}

void MprisPlayer::readProperties(const char* interface) {
    const bool ofPlayer = interface == mpris::playerInterface;
    callMethod(connection_.get(), owner_, mpris::path, mpris::propertiesInterface, "GetAll",
               g_variant_new("(s)", interface), cancellable_.get(), [this, ofPlayer](GVariant* answer) {
                   const Variant properties = valueIn(answer, "a{sv}");
                   if (properties && ofPlayer)
                       takeAll(properties.get());
                   else if (properties)
                       takeApplication(properties.get());
               });
}

void MprisPlayer::readPosition() {
    callMethod(connection_.get(), owner_, mpris::path, mpris::propertiesInterface, "Get",
               g_variant_new("(ss)", mpris::playerInterface, "Position"), cancellable_.get(),
               [this](GVariant* answer) {
                   const Variant boxed = valueIn(answer, "v");
                   const Variant value(boxed ? g_variant_get_variant(boxed.get()) : nullptr);
                   if (const auto position = numberIn(value.get()))
                       setPosition(*position / 1e6);
               });
}

void MprisPlayer::propertiesChanged(GVariant* arguments) {
    if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sa{sv}as)")))
        return;
    const char* interface = nullptr;
    GVariant *changed = nullptr, *invalidated = nullptr;
    g_variant_get(arguments, "(&s@a{sv}@as)", &interface, &changed, &invalidated);
    const Variant ownedChanged(changed), ownedInvalidated(invalidated);
    const bool ofPlayer = std::string_view(interface) == mpris::playerInterface;
    if (!ofPlayer && std::string_view(interface) != mpris::applicationInterface)
        return;
    if (g_variant_n_children(invalidated) > 0)
        readProperties(ofPlayer ? mpris::playerInterface : mpris::applicationInterface);
    if (ofPlayer)
        takePlayer(changed);
    else
        takeApplication(changed);
}

void MprisPlayer::takeApplication(GVariant* properties) {
    const auto identity = textIn(entryOf(properties, "Identity").get());
    const auto entry = textIn(entryOf(properties, "DesktopEntry").get());
    if (identity)
        identity_ = *identity;
    if (entry)
        desktopEntry_ = *entry;
    if (identity || entry)
        observers_.notify(Change::Playing);
}

void MprisPlayer::takePlayer(GVariant* properties) {
    if (const auto rate = numberIn(entryOf(properties, "Rate").get())) {
        position_ = elapsed();
        since_ = foundation::RunLoop::main().now();
        rate_ = *rate >= slowestRate && *rate <= fastestRate ? *rate : 1;
    }
    if (const Variant status = entryOf(properties, "PlaybackStatus"))
        takeStatus(status.get());
    if (const Variant metadata = entryOf(properties, "Metadata"))
        takeTrack(metadata.get());
    if (const auto volume = numberIn(entryOf(properties, "Volume").get()))
        takeVolume(*volume);
}

void MprisPlayer::takeAll(GVariant* properties) {
    takePlayer(properties);
    const auto position = numberIn(entryOf(properties, "Position").get());
    if (!std::exchange(isRead_, true) && position)
        setPosition(*position / 1e6);
}

void MprisPlayer::takeStatus(GVariant* status) {
    const std::string text = textIn(status).value_or(std::string());
    const Status now = text == "Playing"  ? Status::Playing
                       : text == "Paused" ? Status::Paused
                                          : Status::Stopped;
    if (now == status_)
        return;
    position_ = now == Status::Stopped ? 0 : elapsed();
    since_ = foundation::RunLoop::main().now();
    // What plays after a stop may begin anywhere.
    const bool begins = status_ == Status::Stopped && isRead_;
    status_ = now;
    observers_.notify(Change::Playing);
    observers_.notify(Change::Info);
    if (begins)
        readPosition();
}

void MprisPlayer::takeTrack(GVariant* metadata) {
    const TrackMetadata before = std::exchange(track_, TrackMetadata::parse(metadata));
    if (track_ == before)
        return;
    if (track_.isOther(before) && isRead_) {
        position_ = 0;
        since_ = foundation::RunLoop::main().now();
        readPosition();
    }
    song_ = lookUpSong();
    observers_.notify(Change::Info);
}

void MprisPlayer::lookUpSongAgain() {
    const std::int64_t now = lookUpSong();
    if (std::exchange(song_, now) != now)
        observers_.notify(Change::Info);
}

void MprisPlayer::takeVolume(double volume) {
    volume_ = std::clamp(volume, 0.0, 1.0); // some go further
    observers_.notify(Change::Volume);
}

void MprisPlayer::setPosition(double seconds) {
    position_ = std::clamp(seconds, 0.0, longestPosition);
    since_ = foundation::RunLoop::main().now();
    observers_.notify(Change::Elapsed);
}

std::string MprisPlayer::bundleIdentifier() const {
    return isIdentifier(desktopEntry_) ? desktopEntry_ : name_;
}

std::string MprisPlayer::displayName() const {
    return identity_.empty() ? name_.substr(std::string_view(mpris::namePrefix).size() + 1) : identity_;
}

foundation::PropertyList MprisPlayer::nowPlayingInfo() const {
    if (status_ == Status::Stopped || !track_.isTrack())
        return {};
    foundation::PropertyList::Dictionary info{
        {media::kMRMediaRemoteNowPlayingInfoElapsedTime, elapsed()},
        {media::kMRMediaRemoteNowPlayingInfoPlaybackRate, isPlaying() ? rate_ : 0.0},
    };
    const auto addText = [&](const char* key, const std::string& text) {
        if (!text.empty())
            info.emplace(key, text);
    };
    addText(media::kMRMediaRemoteNowPlayingInfoTitle, track_.title);
    addText(media::kMRMediaRemoteNowPlayingInfoArtist, track_.artist);
    addText(media::kMRMediaRemoteNowPlayingInfoAlbum, track_.album);
    if (track_.duration > 0)
        info.emplace(media::kMRMediaRemoteNowPlayingInfoDuration, track_.duration);
    if (song_ > 0)
        info.emplace(media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier, song_);
    return info;
}

double MprisPlayer::elapsed() const {
    double elapsed = position_;
    if (isPlaying())
        elapsed += rate_ * (foundation::RunLoop::main().now() - since_);
    return track_.duration > 0 ? std::min(elapsed, track_.duration) : elapsed;
}

void MprisPlayer::perform(media::RemoteCommand command) {
    call(mpris::playerInterface, methodFor(command));
}

void MprisPlayer::seek(double seconds) {
    if (std::isnan(seconds) || track_.duration <= 0)
        return;
    const double target = std::clamp(seconds, 0.0, track_.duration);
    const auto microseconds = [](double time) { return static_cast<gint64>(std::llround(time * 1e6)); };
    if (!track_.trackId.empty())
        call(mpris::playerInterface, "SetPosition",
             g_variant_new("(ox)", track_.trackId.c_str(), microseconds(target)));
    else
        call(mpris::playerInterface, "Seek", g_variant_new("(x)", microseconds(target - elapsed())));
    setPosition(target);
}

void MprisPlayer::setVolume(double volume) {
    if (!std::isnan(volume))
        call(mpris::propertiesInterface, "Set",
             g_variant_new("(ssv)", mpris::playerInterface, "Volume",
                           g_variant_new_double(std::clamp(volume, 0.0, 1.0))));
}

void MprisPlayer::open(const std::string& address, std::function<void()> refused) {
    callMethod(connection_.get(), owner_, mpris::path, mpris::playerInterface, "OpenUri",
               g_variant_new("(s)", address.c_str()), cancellable_.get(), [refused](GVariant* answer) {
                   if (!answer)
                       refused();
               });
}

void MprisPlayer::launch() {
    call(mpris::applicationInterface, "Raise");
}

void MprisPlayer::call(const char* interface, const char* method, GVariant* arguments) {
    callMethod(connection_.get(), owner_, mpris::path, interface, method, arguments, nullptr);
}

foundation::Handle MprisPlayer::addObserver(std::function<void(Change)> changed) {
    return observers_.add(std::move(changed));
}

} // namespace playback
