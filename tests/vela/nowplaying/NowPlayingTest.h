// The music panel of a launched product, beside a library that a test fills.
#pragma once

#include "platform/foundation/NotificationCenter.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/media/NowPlayingInfo.h"
#include "platform/toolkit/windows/WindowServer.h"
#include "tests/support/Transcript.h"
#include "tests/vela/nowplaying/TestMedia.h"
#include "tests/vela/support/WebTest.h"
#include "vela/nowplaying/NowPlayingState.h"
#include "vela/panels/leftController.h"
#include "vela/panels/leftWindowGrabber.h"
#include "vela/panels/rightController.h"
#include "vela/panels/rightWindowGrabber.h"
#include "vela/startup/MediaItemProperties.h"
#include "vela/startup/ModuleState.h"
#include "vela/stores/PreferenceKeys.h"

#include <gmock/gmock.h>

namespace tests {

class NowPlayingTest : public WebTest {
protected:
    NowPlayingTest() {
        auto values = usualPreferences();
        values[vela::keys::autoscroll] = true;
        values[vela::keys::loadSongsWith] = "artist";
        preferences(values);
        launch();
        panel().setFrame({75, 0, 300, 667});
        controller->addControls(panel().mediaController());
        loop.turn();
    }
    ~NowPlayingTest() override {
        controller->setRadioStation(false);
        controller->playbackStateDidChange(false);
    }

    using Info = foundation::PropertyList::Dictionary;
    static Info info(const std::string& title, const std::string& artist, const std::string& album = "",
                     std::int64_t identifier = 0, double duration = 200) {
        return {{media::kMRMediaRemoteNowPlayingInfoTitle, title},
                {media::kMRMediaRemoteNowPlayingInfoArtist, artist},
                {media::kMRMediaRemoteNowPlayingInfoAlbum, album},
                {media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier, identifier},
                {media::kMRMediaRemoteNowPlayingInfoDuration, duration}};
    }
    /// A report of a song that plays, with a turn for what it sets going.
    void track(foundation::PropertyList information) {
        controller->playbackStateDidChange(true);
        controller->infoDidChange(std::move(information));
        loop.turn();
    }
    void storeLyric(const std::string& title, const std::string& artist, const std::string& lyric) {
        store.addLyric(lyric, title, artist);
    }

    vela::rightController& panel() { return *vela::moduleState().right; }
    vela::lyricView& lyric() { return *panel().lyric(); }
    vela::songsCollectionView& strip() { return *panel().artworkCollectionView(); }
    std::vector<std::string> stripTitles() {
        std::vector<std::string> titles;
        for (const auto& song : strip().array()) {
            const auto* title = song->storedProperty(media::MPMediaItemPropertyTitle);
            titles.push_back(title ? *title->string() : vela::mediaitem::songTitle(*song).value_or("?"));
        }
        return titles;
    }
    vela::nowplaying::NowPlayingState& state = vela::nowplaying::nowPlayingState();

    support::Transcript transcript;
    TestMedia library{transcript};
    /// Not the process's one, which other tests would be told by.
    std::shared_ptr<media::MPUNowPlayingController> controller =
        std::make_shared<media::MPUNowPlayingController>();
};

} // namespace tests
