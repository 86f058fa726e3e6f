// The music of other programs in the session, and the songs on its disk.
#include "tests/session/ProcessUse.h"
#include "tests/session/SessionTest.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/MusicFiles.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <thread>

namespace tests {

namespace {

constexpr const char* title = "kMRMediaRemoteNowPlayingInfoTitle";
constexpr const char* identifier = "kMRMediaRemoteNowPlayingInfoUniqueIdentifier";

/// What of it can be seen on a panel that stands open; points.
constexpr double secondCover[]{360, 165};

bool hasText(const nlohmann::json& view, const std::string& text) {
    return view.value("text", "") == text ||
           std::ranges::any_of(view["subviews"], [&](const auto& each) { return hasText(each, text); });
}

int count(const nlohmann::json& view, const std::string& cls) {
    int found = view["class"] == cls;
    for (const auto& each : view["subviews"])
        found += count(each, cls);
    return found;
}

} // namespace

class SessionMedia : public SessionTest {
protected:
    SessionMedia() {
        // A home of the test's own, with a music directory, and servers that nobody reaches.
        g_setenv("HOME", home_.path().c_str(), TRUE);
        std::filesystem::create_directories(music());
        const auto folder = std::filesystem::path(root()) / "Library/Application Support/Vela";
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "configuration.plist")
            << R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Lyrics</key><string>http://127.0.0.1</string>)"
            << R"(<key>Catalogue</key><string>http://127.0.0.1</string></dict></plist>)";
    }
    std::filesystem::path music() const { return home_.path() / "Music"; }
    std::filesystem::path makeSong(const std::string& name, const std::string& by) {
        const auto file = music() / (name + ".flac");
        support::makeMusicFile(file, {.seconds = 60, .tags = {{"title", name}, {"artist", by}}});
        return file;
    }
    /// A real player of a file.
    void play(const std::filesystem::path& file) {
        player_ = std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{"mpv", "--no-config", "--script=/etc/mpv/scripts/mpris.so", "--ao=null",
                                     "--vo=null", "--no-terminal", file},
            bus().environment());
    }
    void endPlayer() { player_.reset(); }
    /// A player that says what the test makes it say.
    std::unique_ptr<support::FakePlayer> makePlayer(const std::string& song, const std::string& by) {
        auto player = std::make_unique<support::FakePlayer>(bus().address(), "odd");
        player->set("Identity", "'The odd one'", support::FakePlayer::application);
        player->set("PlaybackStatus", "'Playing'");
        player->set("Volume", "0.25");
        player->set("Position", "int64 1000000");
        player->set("Metadata", trackOf(song, by));
        player->appear();
        return player;
    }
    static std::string trackOf(const std::string& song, const std::string& by) {
        return "{'mpris:trackid': <objectpath '/t'>, 'mpris:length': <int64 60000000>, 'xesam:title': <'" +
               song + "'>, 'xesam:artist': <['" + by + "']>}";
    }
    /// The middle of the transport button that bears `sign`, in points of the screen.
    static std::optional<std::array<double, 2>> centreOfButton(const nlohmann::json& view,
                                                               const std::string& sign) {
        const std::array<double, 4> frame = view["frame"];
        if (view["class"] == "MPUTransportButton" && view["properties"]["sign"] == sign)
            return std::array{frame[0] + frame[2] / 2, frame[1] + frame[3] / 2};
        for (const auto& subview : view["subviews"])
            if (const auto found = centreOfButton(subview, sign))
                return std::array{frame[0] + (*found)[0], frame[1] + (*found)[1]};
        return std::nullopt;
    }
    void showPanel() {
        ASSERT_TRUE(request("Show", "right"));
        ASSERT_TRUE(waitForRest("right"));
    }
    bool panelSays(const std::string& text) {
        return eventually([&] { return hasText(window("rightController"), text); });
    }
    int coversShown() { return count(window("rightController"), "songCollectionViewCell"); }
    nlohmann::json nowPlaying() {
        const auto all = state();
        return all.is_null() ? nlohmann::json() : all["nowPlaying"];
    }
    bool shows(const std::string& song) {
        return eventually([&] { return nowPlaying()["info"][title] == song; });
    }

private:
    TemporaryDirectory home_;
    std::unique_ptr<support::BackgroundProcess> player_;
};

TEST_F(SessionMedia, APlayersSongIsOnThePanel) {
    start();
    EXPECT_TRUE(nowPlaying()["application"].is_null());
    play(makeSong("A Song", "Somebody"));
    ASSERT_TRUE(shows("A Song")) << nowPlaying();
    EXPECT_EQ(nowPlaying()["application"], "mpv");
    EXPECT_TRUE(eventually([&] { return nowPlaying()["duration"] == 60; })) << nowPlaying();
    showPanel();
    EXPECT_TRUE(panelSays("mpv")) << "the player's name above all";
    EXPECT_TRUE(panelSays("A Song"));
    EXPECT_TRUE(panelSays("Somebody"));
}

TEST_F(SessionMedia, BehindAClosedPanelMusicCostsNothing) {
    start();
    setPreference("Autoscroll", "bool", "true");
    const auto player = makePlayer("A Song", "Somebody");
    ASSERT_TRUE(shows("A Song")) << nowPlaying();
    showPanel();
    ASSERT_TRUE(request("Dismiss"));
    ASSERT_TRUE(waitForRest(""));
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const ProcessUse host(hostProcess());
    const long before = host.wakeUps();
    std::this_thread::sleep_for(std::chrono::seconds(4));
    // The cycle's two a second, one for the frames, and the end of what the song set going; frames that come
    // by themselves would be sixty a second.
    EXPECT_LE(host.wakeUps() - before, 4 * 3 + 16);
    EXPECT_TRUE(nowPlaying()["playing"]);
}

TEST_F(SessionMedia, TheControlsStopThePlayerAndLetItGoOn) {
    start();
    play(makeSong("A Song", "Somebody"));
    ASSERT_TRUE(shows("A Song")) << nowPlaying();
    ASSERT_TRUE(eventually([&] { return nowPlaying()["playing"] == true; }));
    showPanel();
    const auto pause = centreOfButton(window("rightController"), "pause");
    ASSERT_TRUE(pause);
    tap((*pause)[0], (*pause)[1]);
    EXPECT_TRUE(eventually([&] { return nowPlaying()["playing"] == false; }));
    EXPECT_TRUE(eventually([&] { return centreOfButton(window("rightController"), "play").has_value(); }));
    tap((*pause)[0], (*pause)[1]);
    EXPECT_TRUE(eventually([&] { return nowPlaying()["playing"] == true; }));
}

TEST_F(SessionMedia, ASongOfTheDiskComesWithItsRelativesWhichThePlayerThenPlays) {
    start();
    setPreference("Load songs with", "string", "artist");
    const auto file = makeSong("First", "Somebody");
    makeSong("Second", "Somebody");
    makeSong("Other", "Somebody else");
    play(file);
    ASSERT_TRUE(eventually([&] { return nowPlaying()["info"][identifier].is_number(); })) << nowPlaying();
    showPanel();
    EXPECT_TRUE(eventually([&] { return coversShown() == 2; })) << coversShown();
    tap(secondCover[0], secondCover[1]);
    EXPECT_TRUE(shows("Second")) << nowPlaying();
    EXPECT_TRUE(eventually([&] { return nowPlaying()["playing"] == true; }));
}

TEST_F(SessionMedia, ASongThatNoPlayerTakesIsNotPlayed) {
    makeSong("First", "Somebody");
    makeSong("Second", "Somebody");
    startCompositor();
    startHost({"--no-supervisor"}, HostLog::Protocol);
    setPreference("Load songs with", "string", "artist");
    const auto player = makePlayer("First", "Somebody");
    player->refuse("OpenUri");
    ASSERT_TRUE(eventually([&] { return nowPlaying()["info"][identifier].is_number(); })) << nowPlaying();
    showPanel();
    ASSERT_TRUE(eventually([&] { return coversShown() == 2; }));
    const auto refusal = [&] { return log().find("no player takes the song"); };
    for (int time = 0; time < 2; ++time)
        tap(secondCover[0], secondCover[1]);
    ASSERT_TRUE(eventually([&] { return refusal() != std::string::npos; }));
    EXPECT_EQ(log().find("no player takes the song", refusal() + 1), std::string::npos) << "said once";
}

TEST_F(SessionMedia, TheLibraryRestsUntilThereIsATrack) {
    makeSong("A Song", "Somebody");
    start();
    const auto index = std::filesystem::path(root()) / "var/mobile/Library/Caches/MusicLibrary/songs.index";
    showPanel();
    EXPECT_FALSE(std::filesystem::exists(index));
    const auto player = makePlayer("A Song", "Somebody");
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(index); }));
}

TEST_F(SessionMedia, APlayerThatVanishesLeavesNothing) {
    start();
    play(makeSong("A Song", "Somebody"));
    ASSERT_TRUE(shows("A Song"));
    endPlayer();
    EXPECT_TRUE(eventually([&] { return nowPlaying()["application"].is_null(); })) << nowPlaying();
    EXPECT_EQ(nowPlaying()["playing"], false);
    EXPECT_TRUE(nowPlaying()["info"].is_null());
}

TEST_F(SessionMedia, PlayersComeBackWithTheBus) {
    start();
    auto player = makePlayer("Before", "Somebody");
    ASSERT_TRUE(shows("Before"));
    player.reset();
    bus().stop();
    ASSERT_TRUE(bus().start());
    player = makePlayer("After", "Somebody");
    EXPECT_TRUE(eventually([&] { return !nowPlaying().is_null(); }));
    EXPECT_TRUE(shows("After")) << nowPlaying();
}

TEST_F(SessionMedia, TheVolumeIsThePlayers) {
    start();
    const auto player = makePlayer("A Song", "Somebody");
    EXPECT_TRUE(eventually([&] { return nowPlaying()["volume"] == 0.25; })) << nowPlaying();
    player->change("Volume", "0.75");
    EXPECT_TRUE(eventually([&] { return nowPlaying()["volume"] == 0.75; })) << nowPlaying();
    for (const char* nonsense : {"'loud'", "-3.0", "1e300", "@a{sv} {}"})
        player->change("Volume", nonsense);
    EXPECT_TRUE(eventually([&] { return nowPlaying()["volume"] == 1; })) << nowPlaying();
}

TEST_F(SessionMedia, NonsenseDoesNoHarm) {
    start();
    const auto player = makePlayer("A Song", "Somebody");
    ASSERT_TRUE(shows("A Song"));
    showPanel();
    for (const char* metadata :
         {"{'xesam:title': <int32 7>, 'xesam:url': <'file:///../../etc/passwd'>}",
          "{'mpris:length': <int64 -5>, 'xesam:url': <'file:%%%'>}",
          "{'xesam:artist': <[1, 2]>, 'xesam:url': <'\\n'>, 'xesam:title': <''>}", "'no dictionary'"})
        player->change("Metadata", metadata);
    player->change("Identity", "@as []", support::FakePlayer::application);
    player->change("Metadata", "{'xesam:title': <'" + std::string(1'000'000, 'x') + "'>}");
    ASSERT_TRUE(eventually([&] {
        const auto text = nowPlaying()["info"][title];
        return text.is_string() && text.get<std::string>().size() > 100;
    })) << nowPlaying();
    EXPECT_LE(nowPlaying()["info"][title].get<std::string>().size(), 4096u);
    player->change("Metadata", trackOf("At last", "Somebody"));
    EXPECT_TRUE(shows("At last"));
    EXPECT_TRUE(hostIsRunning());
}

TEST_F(SessionMedia, TimeIsFollowedOnlyWhileThePanelIsSeen) {
    start();
    const auto player = makePlayer("A Song", "Somebody");
    ASSERT_TRUE(shows("A Song"));
    const double before = nowPlaying()["elapsed"];
    std::this_thread::sleep_for(std::chrono::milliseconds(2500));
    EXPECT_EQ(nowPlaying()["elapsed"], before);
    showPanel();
    const double seen = nowPlaying()["elapsed"];
    EXPECT_GE(seen, before + 2.4);
    EXPECT_TRUE(eventually([&] { return nowPlaying()["elapsed"] >= seen + 1; })) << nowPlaying();
}

} // namespace tests
