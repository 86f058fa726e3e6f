// Real files and streams through the real engine. Where a test runs there is rarely anything to hear it with,
// so these also show that playing goes on silently in real time.
#include "hosts/media/engine/GStreamerEngine.h"

#include "tests/support/MusicFiles.h"
#include "tests/support/RealTimeTest.h"
#include "tests/support/StreamServer.h"
#include "tests/support/TemporaryDirectory.h"

#include <cmath>
#include <fstream>

namespace playback {
namespace {

class GStreamerEngineTest : public support::RealTimeTest {
protected:
    GStreamerEngineTest() {
        engine.setEvents({
            [this](double seconds) { durations.push_back(seconds); },
            [this](const std::string& title) { titles.push_back(title); },
            [this] { ++ends; },
            [this](const std::string& reason) { failures.push_back(reason); },
        });
    }

    std::string addressOf(const std::string& name) const {
        return "file://" + (directory.path() / name).string();
    }
    std::string makeFile(const std::string& name, double seconds) {
        support::makeMusicFile(directory.path() / name, {.seconds = seconds});
        return addressOf(name);
    }
    bool playsBeyond(double seconds) {
        return runUntil([&] { return engine.position() > seconds; });
    }

    tests::TemporaryDirectory directory;
    std::vector<double> durations;
    std::vector<std::string> titles;
    std::vector<std::string> failures;
    int ends = 0;
    GStreamerEngine engine;
};

class EveryKindOfFile : public GStreamerEngineTest, public testing::WithParamInterface<const char*> {};

TEST_P(EveryKindOfFile, IsPlayedToItsEndInRealTime) {
    const std::string address = makeFile(std::string("Song.") + GetParam(), 1);
    engine.load(address, 0);
    EXPECT_EQ(engine.state(), PlaybackState::Paused);
    engine.play();
    EXPECT_EQ(engine.state(), PlaybackState::Playing);
    ASSERT_TRUE(playsBeyond(0.1));
    const double begin = loop.now();
    ASSERT_TRUE(runUntil([&] { return ends == 1; }));
    const double rest = loop.now() - begin;
    EXPECT_GT(rest, 0.5);
    EXPECT_LT(rest, 5);
    ASSERT_FALSE(durations.empty());
    EXPECT_NEAR(durations.back(), 1, 0.15);
    EXPECT_EQ(engine.state(), PlaybackState::Stopped);
    EXPECT_TRUE(failures.empty());
    EXPECT_TRUE(titles.empty()) << "the tags of files are the library's";
}
INSTANTIATE_TEST_SUITE_P(GStreamerEngine, EveryKindOfFile,
                         testing::Values("mp3", "flac", "ogg", "opus", "m4a", "wav"));

TEST_F(GStreamerEngineTest, StandsAtTheBeginningUntilItPlays) {
    engine.load(makeFile("Song.flac", 5), 5);
    EXPECT_EQ(engine.duration(), 5);
    runFor(0.5);
    EXPECT_EQ(engine.position(), 0);
    EXPECT_EQ(engine.state(), PlaybackState::Paused);
}

TEST_F(GStreamerEngineTest, StopsWhereItIsPausedAndGoesOnFromThere) {
    engine.load(makeFile("Song.flac", 10), 10);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.2));
    engine.pause();
    const double paused = engine.position();
    runFor(0.5);
    EXPECT_NEAR(engine.position(), paused, 0.15);
    engine.play();
    EXPECT_TRUE(playsBeyond(paused + 0.2));
}

TEST_F(GStreamerEngineTest, IsAtTheTargetAsSoonAsItIsToldToGoThere) {
    engine.load(makeFile("Song.mp3", 20), 20);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.1));
    engine.seek(12);
    EXPECT_EQ(engine.position(), 12);
    ASSERT_TRUE(playsBeyond(12.1));
    EXPECT_LT(engine.position(), 14);
    engine.seek(3);
    EXPECT_EQ(engine.position(), 3);
    ASSERT_TRUE(playsBeyond(3.1));
    EXPECT_LT(engine.position(), 5);
}

TEST_F(GStreamerEngineTest, GoesToATargetThatWasGivenBeforeTheFileIsOpen) {
    engine.load(makeFile("Song.ogg", 20), 20);
    engine.seek(15);
    EXPECT_EQ(engine.position(), 15);
    engine.play();
    ASSERT_TRUE(playsBeyond(15.1));
    EXPECT_LT(engine.position(), 17);
}

TEST_F(GStreamerEngineTest, GoesNoFurtherThanToTheEnd) {
    engine.load(makeFile("Song.flac", 2), 2);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.1));
    engine.seek(1000);
    EXPECT_LE(engine.position(), 2.1);
    EXPECT_TRUE(runUntil([&] { return ends == 1; }));
}

TEST_F(GStreamerEngineTest, TakesAnotherSongWithoutWordFromTheFirst) {
    const std::string first = makeFile("First.flac", 1);
    const std::string second = makeFile("Second.flac", 3);
    engine.load(first, 0);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.8));
    engine.load(second, 0);
    durations.clear();
    engine.play();
    ASSERT_TRUE(playsBeyond(0.5));
    EXPECT_EQ(ends, 0);
    ASSERT_EQ(durations.size(), 1u);
    EXPECT_NEAR(durations.front(), 3, 0.1);
    EXPECT_TRUE(runUntil([&] { return ends == 1; }));
}

TEST_F(GStreamerEngineTest, TellsOfAFileThatIsNotThere) {
    engine.load(addressOf("None.mp3"), 10);
    engine.play();
    ASSERT_TRUE(runUntil([&] { return !failures.empty(); }));
    EXPECT_EQ(failures.size(), 1u);
    EXPECT_FALSE(failures.front().empty());
    EXPECT_EQ(engine.state(), PlaybackState::Stopped);
    EXPECT_EQ(engine.duration(), 0);
}

TEST_F(GStreamerEngineTest, TellsOnceOfAFileOfGarbageAndPlaysTheNext) {
    std::ofstream(directory.path() / "Garbage.mp3") << std::string(100000, '\x5A');
    engine.load(addressOf("Garbage.mp3"), 10);
    engine.play();
    ASSERT_TRUE(runUntil([&] { return !failures.empty(); }));
    runFor(0.3);
    EXPECT_EQ(failures.size(), 1u);
    engine.load(makeFile("Song.mp3", 1), 1);
    engine.play();
    EXPECT_TRUE(runUntil([&] { return ends == 1; }));
}

TEST_F(GStreamerEngineTest, RefusesOtherKindsOfAddresses) {
    for (const char* address :
         {"", "Song.mp3", "ftp://localhost/Song.mp3", "appsrc://", "v4l2:///dev/video0"}) {
        failures.clear();
        engine.load(address, 0);
        EXPECT_TRUE(failures.empty()) << "never from within a call";
        EXPECT_TRUE(runUntil([&] { return failures.size() == 1; })) << address;
    }
}

TEST_F(GStreamerEngineTest, DoesNothingWithoutAnythingLoaded) {
    engine.play();
    engine.pause();
    engine.seek(10);
    engine.unload();
    runFor(0.2);
    EXPECT_EQ(engine.state(), PlaybackState::Stopped);
    EXPECT_EQ(engine.position(), 0);
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(ends, 0);
}

TEST_F(GStreamerEngineTest, KeepsTheVolumeFromSongToSong) {
    EXPECT_EQ(engine.volume(), 1);
    engine.setVolume(0.5);
    engine.load(makeFile("Song.flac", 1), 1);
    EXPECT_EQ(engine.volume(), 0.5);
    engine.setVolume(7);
    EXPECT_EQ(engine.volume(), 1);
    engine.setVolume(-1);
    EXPECT_EQ(engine.volume(), 0);
    engine.setVolume(std::nan(""));
    EXPECT_EQ(engine.volume(), 0);
}

TEST_F(GStreamerEngineTest, EndsWhileItPlays) {
    GStreamerEngine other;
    other.load(makeFile("Song.flac", 10), 10);
    other.play();
    ASSERT_TRUE(runUntil([&] { return other.position() > 0.1; }));
}

class StreamTest : public GStreamerEngineTest {
protected:
    support::StreamServer server;
};

TEST_F(StreamTest, NamesWhatItPlays) {
    engine.load(server.address("/radio"), 0);
    engine.play();
    ASSERT_TRUE(runUntil([&] { return titles.size() >= 2; }));
    EXPECT_EQ(titles[0], "The Singer - First Song");
    EXPECT_EQ(titles[1], "The Singer - Second Song");
    EXPECT_EQ(engine.duration(), 0);
    ASSERT_TRUE(playsBeyond(0.2));
    EXPECT_TRUE(failures.empty());
}

TEST_F(StreamTest, StaysWhereItIsWithoutAnEnd) {
    engine.load(server.address("/radio"), 0);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.2));
    engine.seek(100);
    EXPECT_LT(engine.position(), 50);
}

TEST_F(StreamTest, IsHeardAnewAfterAPause) {
    engine.load(server.address("/radio"), 0);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.2));
    engine.pause();
    runFor(0.3);
    engine.play();
    runFor(0.3);
    EXPECT_TRUE(playsBeyond(0.2));
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(engine.state(), PlaybackState::Playing);
}

TEST_F(StreamTest, SurvivesHostileTitles) {
    engine.load(server.address("/hostile"), 0);
    engine.play();
    ASSERT_TRUE(runUntil([&] { return !titles.empty() && titles.back() == "Mended - Again"; }));
    for (const std::string& title : titles) {
        EXPECT_TRUE(g_utf8_validate(title.data(), static_cast<gssize>(title.size()), nullptr));
        EXPECT_LE(title.size(), 4096u);
    }
}

TEST_F(StreamTest, FailsWhenTheServerHasNone) {
    for (const char* path : {"/missing", "/page"}) {
        failures.clear();
        engine.load(server.address(path), 0);
        engine.play();
        ASSERT_TRUE(runUntil([&] { return !failures.empty(); })) << path;
        EXPECT_EQ(engine.state(), PlaybackState::Stopped);
    }
}

TEST_F(StreamTest, EndsOrFailsWhenTheServerBreaksOff) {
    engine.load(server.address("/broken"), 0);
    engine.play();
    EXPECT_TRUE(runUntil([&] { return ends + static_cast<int>(failures.size()) == 1; }));
}

TEST_F(StreamTest, NeverHoldsTheMainLoopUp) {
    engine.load(server.address("/silent"), 0);
    engine.play();
    runFor(0.5);
    longestTurn = 0;
    engine.pause();
    engine.play();
    engine.load(server.address("/radio"), 0);
    engine.play();
    ASSERT_TRUE(runUntil([&] { return !titles.empty(); }));
    EXPECT_LT(longestTurn, 0.1);
}

TEST_F(StreamTest, PlaysAFileOfTheNetworkWithItsEnd) {
    engine.load(server.address("/file"), 0);
    engine.play();
    ASSERT_TRUE(playsBeyond(0.1));
    ASSERT_FALSE(durations.empty());
    EXPECT_NEAR(durations.back(), 6, 0.2);
    EXPECT_TRUE(runUntil([&] { return ends == 1; }));
}

} // namespace
} // namespace playback
