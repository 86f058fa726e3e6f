#include "hosts/media/mpris/MprisPlayers.h"

#include "platform/media/NowPlayingInfo.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/MusicFiles.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/RealTimeTest.h"

#include <gmock/gmock.h>

namespace playback {
namespace {

constexpr const char* title = media::kMRMediaRemoteNowPlayingInfoTitle;
constexpr const char* artist = media::kMRMediaRemoteNowPlayingInfoArtist;
constexpr const char* duration = media::kMRMediaRemoteNowPlayingInfoDuration;

class MprisPlayersTest : public support::RealTimeTest {
protected:
    /// A player that plays a song of 200 seconds.
    std::unique_ptr<support::FakePlayer> makePlayer(const std::string& name, const std::string& song) {
        auto player = std::make_unique<support::FakePlayer>(bus.address(), name);
        player->set("Identity", "'The " + name + "'", support::FakePlayer::application);
        player->set("PlaybackStatus", "'Playing'");
        player->set("Rate", "1.0");
        player->set("Position", "int64 10000000");
        player->set("Metadata", trackOf(song));
        return player;
    }
    static std::string trackOf(const std::string& song) {
        return "{'mpris:trackid': <objectpath '/track/" + song + "'>, 'mpris:length': <int64 200000000>, " +
               "'xesam:title': <'" + song + "'>, 'xesam:artist': <['One', 'Two']>, 'xesam:album': <'Album'>}";
    }
    std::string chosenTitle() const {
        const auto source = choice.chosen();
        const auto info = source ? source->nowPlayingInfo() : foundation::PropertyList();
        return info[title].string() ? *info[title].string() : std::string();
    }
    bool shows(const std::string& song) {
        return runUntil([&] { return chosenTitle() == song; });
    }
    bool showsNothing() {
        return runUntil([&] { return !choice.chosen(); });
    }

    support::PrivateBus bus;
    bus::Bus session{bus::Bus::Kind::Session};
    NowPlayingChoice choice;
    MprisPlayers players{session, choice};
};

TEST_F(MprisPlayersTest, ShowWhatAnotherApplicationPlays) {
    const auto player = makePlayer("first", "Song");
    player->appear();
    ASSERT_TRUE(shows("Song"));
    ASSERT_TRUE(runUntil([&] { return choice.chosen()->displayName() == "The first"; }));
    const auto source = choice.chosen();
    const auto info = source->nowPlayingInfo();
    EXPECT_EQ(*info[artist].string(), "One, Two");
    EXPECT_EQ(info[duration].doubleValue(), 200);
    EXPECT_TRUE(info[media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier].isNil());
    EXPECT_EQ(source->bundleIdentifier(), "org.mpris.MediaPlayer2.first");
    EXPECT_TRUE(source->isPlaying());
    EXPECT_FALSE(source->isRadioStation());
}

TEST_F(MprisPlayersTest, FindPlayersThatWereThereBefore) {
    const auto player = makePlayer("early", "Song");
    player->appear();
    NowPlayingChoice own;
    const MprisPlayers late(session, own);
    EXPECT_TRUE(runUntil([&] { return own.chosen() != nullptr; }));
}

TEST_F(MprisPlayersTest, GoWhenTheirApplicationGoes) {
    auto player = makePlayer("first", "Song");
    player->appear();
    ASSERT_TRUE(shows("Song"));
    player->vanish();
    ASSERT_TRUE(showsNothing());
    player->appear();
    ASSERT_TRUE(shows("Song"));
    player.reset();
    EXPECT_TRUE(showsNothing());
}

TEST_F(MprisPlayersTest, ChooseOneThatPlaysBeforeOneThatIsPausedAndTheLatestToStart) {
    const auto first = makePlayer("first", "A");
    first->appear();
    ASSERT_TRUE(shows("A"));
    const auto second = makePlayer("second", "B");
    second->set("PlaybackStatus", "'Paused'");
    second->appear();
    ASSERT_TRUE(runUntil([&] { return choice.sources().size() == 2; }));
    runFor(0.2);
    EXPECT_EQ(chosenTitle(), "A");
    second->change("PlaybackStatus", "'Playing'");
    EXPECT_TRUE(shows("B"));
    second->change("PlaybackStatus", "'Paused'");
    EXPECT_TRUE(shows("A"));
    first->change("PlaybackStatus", "'Stopped'");
    EXPECT_TRUE(shows("B"));
}

TEST_F(MprisPlayersTest, LeaveProxiesOut) {
    const auto proxy = makePlayer("playerctld", "Proxy");
    proxy->appear();
    const auto instance = makePlayer("playerctld.instance7", "Proxy");
    instance->appear();
    const auto player = makePlayer("real", "Real");
    player->appear();
    ASSERT_TRUE(shows("Real"));
    runFor(0.2);
    EXPECT_EQ(choice.sources().size(), 1u);
}

TEST_F(MprisPlayersTest, AdvanceThePositionThatWasReadOnceWithTheRate) {
    const auto player = makePlayer("first", "Song");
    player->set("Rate", "2.0");
    player->appear();
    ASSERT_TRUE(shows("Song"));
    const double begin = loop.now();
    const double position = choice.chosen()->elapsed();
    EXPECT_NEAR(position, 10, 0.5);
    runFor(0.5);
    EXPECT_NEAR(choice.chosen()->elapsed(), position + 2 * (loop.now() - begin), 0.05);
    player->change("PlaybackStatus", "'Paused'");
    ASSERT_TRUE(runUntil([&] { return !choice.chosen()->isPlaying(); }));
    const double paused = choice.chosen()->elapsed();
    runFor(0.3);
    EXPECT_EQ(choice.chosen()->elapsed(), paused);
    EXPECT_EQ(player->timesPositionWasRead(), 1u);
    player->emit(support::FakePlayer::player, "Seeked", g_variant_new("(x)", gint64{77'000'000}));
    ASSERT_TRUE(runUntil([&] { return choice.chosen()->elapsed() == 77; }));
    EXPECT_EQ(player->timesPositionWasRead(), 1u);
}

TEST_F(MprisPlayersTest, ReadThePositionAgainForAnotherTrack) {
    const auto player = makePlayer("first", "A");
    player->appear();
    ASSERT_TRUE(shows("A"));
    player->set("Position", "int64 30000000");
    player->change("Metadata", trackOf("B"));
    ASSERT_TRUE(shows("B"));
    EXPECT_TRUE(runUntil([&] { return choice.chosen()->elapsed() >= 30; }));
    EXPECT_EQ(player->timesPositionWasRead(), 2u);
}

TEST_F(MprisPlayersTest, GoNoFurtherThanTheTracksLength) {
    const auto player = makePlayer("first", "Song");
    player->set("Position", "int64 900000000");
    player->appear();
    ASSERT_TRUE(shows("Song"));
    EXPECT_EQ(choice.chosen()->elapsed(), 200);
}

TEST_F(MprisPlayersTest, PassCommandsOnToThePlayer) {
    const auto player = makePlayer("first", "Song");
    player->appear();
    ASSERT_TRUE(shows("Song"));
    const auto source = choice.chosen();
    source->perform(media::RemoteCommand::Pause);
    source->perform(media::RemoteCommand::Play);
    source->perform(media::RemoteCommand::TogglePlayPause);
    source->perform(media::RemoteCommand::NextTrack);
    source->perform(media::RemoteCommand::PreviousTrack);
    source->seek(5);
    EXPECT_NEAR(source->elapsed(), 5, 0.1) << "at once";
    source->setVolume(0.25);
    source->launch();
    ASSERT_TRUE(runUntil([&] { return player->calls().size() == 8; }));
    EXPECT_THAT(player->calls(),
                testing::ElementsAre("Pause()", "Play()", "PlayPause()", "Next()", "Previous()",
                                     "SetPosition('/track/Song', 5000000)",
                                     "Set('org.mpris.MediaPlayer2.Player', 'Volume', <0.25>)", "Raise()"));
}

TEST_F(MprisPlayersTest, SurviveNonsense) {
    const auto player = makePlayer("odd", "Song");
    player->appear();
    ASSERT_TRUE(shows("Song"));
    const std::string huge(1'000'000, 'x');
    for (const std::string metadata :
         {"{'xesam:title': <int32 7>, 'mpris:length': <'long'>, 'xesam:artist': <{'a': 'b'}>, 'xesam:url': "
          "<'u'>}",
          "{'mpris:length': <int64 -5>, 'xesam:artist': <[1, 2, 3]>, 'mpris:trackid': <'no path'>, "
          "'xesam:url': <'v'>}",
          "{'mpris:length': <uint64 18446744073709551615>, 'mpris:artUrl': <'javascript:alert(1)'>, "
          "'xesam:url': <''>}",
          "{'mpris:length': <'NaN'>, 'mpris:artUrl': <'file:///etc/passwd'>, 'xesam:title': <['a']>}"}) {
        player->change("Metadata", metadata);
        player->change("Rate", "-1.0");
        player->change("Rate", "'fast'");
        player->change("PlaybackStatus", "42");
        player->change("PlaybackStatus", "'Playing'");
    }
    player->change("Metadata", "'no dictionary'");
    player->change("Metadata", "@a{sv} {}");
    player->change("Identity", "5", support::FakePlayer::application);
    player->change("DesktopEntry", "'../../evil'", support::FakePlayer::application);
    player->emit(support::FakePlayer::player, "Seeked", g_variant_new("(s)", "nowhere"));
    player->emit(support::FakePlayer::player, "Seeked", g_variant_new("(x)", G_MININT64));
    player->emit("org.freedesktop.DBus.Properties", "PropertiesChanged", g_variant_new("(i)", 1));
    player->change("Metadata", "{'xesam:title': <'" + huge +
                                   "'>, 'xesam:artist': <'Single'>, "
                                   "'mpris:length': <60000000.0>}");
    ASSERT_TRUE(runUntil([&] { return chosenTitle().size() > 100; }));
    const auto info = choice.chosen()->nowPlayingInfo();
    EXPECT_LE(chosenTitle().size(), 4096u);
    EXPECT_EQ(*info[artist].string(), "Single");
    EXPECT_EQ(info[duration].doubleValue(), 60);
    EXPECT_EQ(choice.chosen()->bundleIdentifier(), "org.mpris.MediaPlayer2.odd");
    EXPECT_GE(choice.chosen()->elapsed(), 0);
    EXPECT_LE(choice.chosen()->elapsed(), 60);
}

TEST_F(MprisPlayersTest, ComeBackWithTheBus) {
    auto player = makePlayer("first", "Before");
    player->appear();
    ASSERT_TRUE(shows("Before"));
    bus.stop();
    ASSERT_TRUE(showsNothing());
    player.reset();
    bus.start();
    player = makePlayer("first", "After");
    player->appear();
    EXPECT_TRUE(shows("After"));
}

TEST_F(MprisPlayersTest, FollowARealPlayer) {
    tests::TemporaryDirectory directory;
    const auto file = directory.path() / "song.flac";
    support::makeMusicFile(file,
                           {.seconds = 30, .tags = {{"title", "Real Song"}, {"artist", "Real Artist"}}});
    const support::BackgroundProcess mpv({"mpv", "--no-config", "--script=/etc/mpv/scripts/mpris.so",
                                          "--ao=null", "--vo=null", "--no-terminal", file},
                                         {});
    ASSERT_TRUE(shows("Real Song"));
    const auto source = choice.chosen();
    EXPECT_EQ(source->displayName(), "mpv");
    EXPECT_EQ(source->bundleIdentifier(), "mpv");
    ASSERT_TRUE(runUntil([&] { return source->isPlaying() && source->elapsed() > 0.5; }));
    EXPECT_NEAR(source->nowPlayingInfo()[duration].doubleValue(), 30, 0.1);
    source->seek(20);
    ASSERT_TRUE(runUntil([&] { return source->elapsed() > 20.2; }));
    EXPECT_LT(source->elapsed(), 23);
    source->perform(media::RemoteCommand::Pause);
    ASSERT_TRUE(runUntil([&] { return !source->isPlaying(); }));
    source->perform(media::RemoteCommand::Play);
    EXPECT_TRUE(runUntil([&] { return source->isPlaying(); }));
}

TEST(MprisWithoutABus, IsQuiet) {
    foundation::GlibRunLoop loop;
    foundation::RunLoop::setMain(&loop);
    {
        g_setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus", TRUE);
        bus::Bus session{bus::Bus::Kind::Session};
        NowPlayingChoice choice;
        const MprisPlayers players(session, choice);
        for (int turn = 0; turn < 20; ++turn)
            g_main_context_iteration(nullptr, FALSE);
        EXPECT_FALSE(session.connection());
        EXPECT_TRUE(choice.sources().empty());
        g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
    }
    foundation::RunLoop::setMain(nullptr);
}

} // namespace
} // namespace playback
