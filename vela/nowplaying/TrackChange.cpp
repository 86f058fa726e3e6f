#include "vela/nowplaying/TrackChange.h"

#include "platform/foundation/RunLoop.h"
#include "platform/media/NowPlayingInfo.h"
#include "vela/nowplaying/NowPlayingState.h"
#include "vela/nowplaying/velaItemsManager.h"
#include "vela/nowplaying/velaWebManager.h"
#include "vela/panels/rightController.h"
#include "vela/startup/MediaItemProperties.h"
#include "vela/startup/ModuleState.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::PropertyList;
using foundation::RunLoop;
using media::MPMediaItem;
using media::MPMediaItemArtwork;

namespace vela::nowplaying {

namespace {

constexpr const char* textAtRest = "Lyric";

struct Track {
    std::string title;
    std::string artist;
    std::string album;
    bool isNamed() const { return !title.empty() && !artist.empty(); }
    bool isNameless() const { return title.empty() && artist.empty(); }
};

std::string textOf(const PropertyList& value) {
    return value.string() ? *value.string() : std::string();
}

Track trackOf(const PropertyList& info) {
    return {textOf(info[media::kMRMediaRemoteNowPlayingInfoTitle]),
            textOf(info[media::kMRMediaRemoteNowPlayingInfoArtist]),
            textOf(info[media::kMRMediaRemoteNowPlayingInfoAlbum])};
}

void showSongs(rightController& panel, media::MediaItems songs) {
    panel.artworkCollectionView()->setArray(std::move(songs));
}

/// Runs `change` on the main thread with the panel, unless that is gone by then.
void onPanelLater(std::function<void(rightController&)> change) {
    RunLoop::main().performOnMain([change = std::move(change)] {
        if (const auto& panel = moduleState().right)
            change(*panel);
    });
}

void fetchArtwork(const Track& track, const std::shared_ptr<MPMediaItem>& song) {
    velaWebManager::sharedInstance().getArtworkForSongName(
        track.title, track.artist, [song](const std::shared_ptr<const toolkit::Image>& image) {
            onPanelLater([song, image](rightController& panel) {
                mediaitem::setSongArtwork(*song, std::make_shared<MPMediaItemArtwork>(image));
                panel.artworkCollectionView()->reloadSections({0});
            });
        });
}

/// A song that is not in the library stands alone in the strip. Without its full name the strip stays as it
/// is.
void showOutsideSong(rightController& panel, const Track& track) {
    const auto song = std::make_shared<MPMediaItem>();
    if (!track.isNamed())
        return;
    mediaitem::setSongArtist(*song, track.artist);
    mediaitem::setSongTitle(*song, track.title);
    showSongs(panel, {song});
    fetchArtwork(track, song);
}

void showLibrarySong(rightController& panel, const Track& track, const std::shared_ptr<MPMediaItem>& song) {
    const PropertyList type = VelaSettingsManager::sharedInstance().getTypeOfEntityToLoad();
    auto& items = velaItemsManager::sharedInstance();
    media::MediaItems related;
    if (type.equals("album"))
        related = items.getAllSongsWithKey(track.album, song);
    else if (type.equals("artist"))
        related = items.getAllSongsWithKey(track.artist, song);
    // A stored "queue" is answered as "artist", so that this always holds.
    if (!type.equals("queue"))
        showSongs(panel, std::move(related));
    if (!song->artwork() && track.isNamed())
        fetchArtwork(track, song);
}

void showSong(rightController& panel, const Track& track, const PropertyList& identifier) {
    if (const auto song = velaItemsManager::sharedInstance().getMediaItemByIdentifier(identifier))
        showLibrarySong(panel, track, song);
    else
        showOutsideSong(panel, track);
}

void fetchLyric(rightController& panel, const Track& track) {
    panel.lyric()->startAnimatingRing();
    velaWebManager::sharedInstance().getLyricTextForSongName(
        track.title, track.artist, [](LyricResult result, const std::string& text) {
            onPanelLater([result, text](rightController& shown) {
                shown.lyric()->setText(text, static_cast<int>(result));
            });
        });
}

} // namespace

void showNoTrack(rightController& panel) {
    panel.lyric()->stopAnimatingRing();
    panel.lyric()->setText(textAtRest, static_cast<int>(LyricResult::TextPresent));
    showSongs(panel, {});
    panel.artworkCollectionView()->reloadSections({0});
}

void showTrack(rightController& panel, const PropertyList& info, Source source) {
    nowPlayingState().songDuration = info[media::kMRMediaRemoteNowPlayingInfoDuration].floatValue();
    const Track track = trackOf(info);
    if (source == Source::Radio)
        showOutsideSong(panel, track);
    else
        showSong(panel, track, info[media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier]);
    if (track.isNameless())
        showNoTrack(panel);
    else
        fetchLyric(panel, track);
}

} // namespace vela::nowplaying
