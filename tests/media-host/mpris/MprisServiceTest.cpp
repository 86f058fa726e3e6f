// The phone's player as playerctl, a real client, sees and drives it.
#include "hosts/media/mpris/MprisService.h"

#include "hosts/media/mpris/MprisPlayers.h"
#include "platform/foundation/Observers.h"
#include "platform/media/NowPlayingInfo.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/RealTimeTest.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include <glib-unix.h>

namespace playback {
namespace {

/// Two songs of 100 seconds; time stands still.
class TwoSongs final : public NowPlayingSource {
public:
    std::string bundleIdentifier() const override { return "com.apple.Music"; }
    std::string displayName() const override { return "Music"; }
    bool isPlaying() const override { return playing_; }
    bool isRadioStation() const override { return false; }
    foundation::PropertyList nowPlayingInfo() const override {
        if (song_ == 0)
            return {};
        return foundation::PropertyList::Dictionary{
            {media::kMRMediaRemoteNowPlayingInfoTitle, "Song " + std::to_string(song_)},
            {media::kMRMediaRemoteNowPlayingInfoArtist, "Singer\xFF"},
            {media::kMRMediaRemoteNowPlayingInfoAlbum, "Album"},
            {media::kMRMediaRemoteNowPlayingInfoDuration, 100.0},
            {media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier, song_},
        };
    }
    double elapsed() const override { return elapsed_; }
    void perform(media::RemoteCommand command) override {
        using media::RemoteCommand;
        if (command == RemoteCommand::NextTrack || command == RemoteCommand::PreviousTrack) {
            song_ = song_ == 1 ? 2 : 1;
            elapsed_ = 0;
        } else {
            playing_ =
                command == RemoteCommand::Play || (command == RemoteCommand::TogglePlayPause && !playing_);
            song_ = std::max(song_, 1);
        }
        changed.notify(Change::Playing);
        changed.notify(Change::Info);
    }
    void seek(double seconds) override {
        elapsed_ = seconds;
        changed.notify(Change::Elapsed);
    }
    void setVolume(double) override {}
    void launch() override { ++launches; }
    foundation::Handle addObserver(std::function<void(Change)> observer) override {
        return changed.add(observer);
    }

    int launches = 0;
    foundation::Observers<Change> changed;

private:
    bool playing_ = false;
    int song_ = 0;
    double elapsed_ = 0;
};

class MprisServiceTest : public support::RealTimeTest {
protected:
    /// Runs playerctl while the main loop goes on, and answers what it printed.
    std::string playerctl(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"/usr/bin/playerctl", "--player=vela"});
        std::string output;
        std::atomic<bool> done = false;
        std::thread thread([&] {
            const auto child = support::ChildProcess::run(arguments);
            output = child.output + child.errors;
            done = true;
        });
        EXPECT_TRUE(runUntil([&] { return done.load(); }));
        thread.join();
        while (!output.empty() && output.back() == '\n')
            output.pop_back();
        return output;
    }
    bool isOnBus() {
        return runUntil([&] { return playerctl({"--list-all"}).starts_with("vela"); });
    }

    support::PrivateBus bus;
    bus::Bus session{bus::Bus::Kind::Session};
    TwoSongs songs;
    double volume = 0.5;
    MprisService service{session,
                         songs,
                         {"vela", "Vela", "vela-phone"},
                         {[this] { return volume; }, [this](double wanted) { volume = wanted; }}};
};

TEST_F(MprisServiceTest, IsDrivenByOthers) {
    ASSERT_TRUE(isOnBus());
    EXPECT_EQ(playerctl({"status"}), "Stopped");
    songs.perform(media::RemoteCommand::Play);
    EXPECT_EQ(playerctl({"status"}), "Playing");
    EXPECT_EQ(playerctl({"metadata", "--format", "{{title}}|{{artist}}|{{album}}|{{mpris:length}}"}),
              "Song 1|Singer\xEF\xBF\xBD|Album|100000000");
    playerctl({"pause"});
    EXPECT_TRUE(runUntil([&] { return !songs.isPlaying(); }));
    playerctl({"play-pause"});
    EXPECT_TRUE(runUntil([&] { return songs.isPlaying(); }));
    playerctl({"next"});
    EXPECT_EQ(playerctl({"metadata", "title"}), "Song 2");
    playerctl({"previous"});
    EXPECT_EQ(playerctl({"metadata", "title"}), "Song 1");
}

TEST_F(MprisServiceTest, TellsAndTakesThePosition) {
    ASSERT_TRUE(isOnBus());
    songs.perform(media::RemoteCommand::Play);
    playerctl({"position", "42"});
    EXPECT_TRUE(runUntil([&] { return songs.elapsed() == 42; }));
    EXPECT_NEAR(std::stod(playerctl({"position"})), 42, 0.1);
    playerctl({"position", "10-"});
    EXPECT_TRUE(runUntil([&] { return songs.elapsed() == 32; }));
    playerctl({"position", "4000"});
    EXPECT_NEAR(std::stod(playerctl({"position"})), 32, 0.1) << "a position beyond the end is ignored";
    playerctl({"position", "1000+"});
    EXPECT_EQ(playerctl({"metadata", "title"}), "Song 2") << "a leap beyond the end goes to the next song";
    playerctl({"stop"});
    EXPECT_TRUE(runUntil([&] { return !songs.isPlaying(); }));
    EXPECT_EQ(songs.elapsed(), 0);
}

TEST_F(MprisServiceTest, TellsAndTakesTheVolume) {
    ASSERT_TRUE(isOnBus());
    songs.perform(media::RemoteCommand::Play);
    EXPECT_EQ(playerctl({"volume"}), "0.500000");
    playerctl({"volume", "0.25"});
    EXPECT_TRUE(runUntil([&] { return volume == 0.25; }));
}

TEST_F(MprisServiceTest, TellsListenersOfChanges) {
    ASSERT_TRUE(isOnBus());
    int output = -1;
    const support::BackgroundProcess listener({"playerctl", "--player=vela", "--follow", "metadata", "title"},
                                              {}, &output);
    g_unix_set_fd_nonblocking(output, TRUE, nullptr);
    std::string heard;
    const auto hears = [&](const std::string& wanted) {
        return runUntil([&] {
            char piece[64];
            for (ssize_t count = 0; (count = read(output, piece, sizeof piece)) > 0;)
                heard.append(piece, static_cast<std::size_t>(count));
            return heard.ends_with(wanted);
        });
    };
    songs.perform(media::RemoteCommand::Play);
    EXPECT_TRUE(hears("Song 1\n"));
    songs.perform(media::RemoteCommand::NextTrack);
    EXPECT_TRUE(hears("Song 2\n"));
    close(output);
}

TEST_F(MprisServiceTest, IsNotShownAsAnotherApplication) {
    NowPlayingChoice choice;
    const MprisPlayers players(session, choice);
    ASSERT_TRUE(isOnBus());
    support::FakePlayer other(bus.address(), "other");
    other.appear();
    ASSERT_TRUE(runUntil([&] { return !choice.sources().empty(); }));
    runFor(0.2);
    EXPECT_EQ(choice.sources().size(), 1u);
}

TEST_F(MprisServiceTest, TakesAnotherNameBesideAnotherPhone) {
    ASSERT_TRUE(isOnBus());
    bus::Bus secondSession{bus::Bus::Kind::Session};
    TwoSongs secondSongs;
    const MprisService second(secondSession, secondSongs, {"vela", "Vela", ""},
                              {[] { return 1.0; }, [](double) {}});
    EXPECT_TRUE(runUntil([&] {
        return playerctl({"--list-all"}).find("vela.instance" + std::to_string(getpid())) !=
               std::string::npos;
    }));
}

TEST_F(MprisServiceTest, ComesBackWithTheBus) {
    ASSERT_TRUE(isOnBus());
    bus.stop();
    ASSERT_TRUE(runUntil([&] { return !session.connection(); }));
    songs.perform(media::RemoteCommand::Play);
    bus.start();
    ASSERT_TRUE(isOnBus());
    EXPECT_EQ(playerctl({"status"}), "Playing");
}

} // namespace
} // namespace playback
