// Real songs on the real phone: read from their files, played in virtual time, and heard of by the extension.
#include "tests/support/MusicFiles.h"
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>

namespace {

using nlohmann::json;
using tests::PhoneRun;

/// Two songs of one artist and one of another.
class Songs {
public:
    Songs() {
        add("boats.mp3", "Paper Boats", "The Long Tide", "Low Water", 30);
        add("lights.flac", "Harbour Lights", "The Long Tide", "Low Water", 20);
        add("rain.ogg", "Rain", "Mira Vale", "Attic", 10);
    }
    std::string path() const { return directory_.path(); }

private:
    void add(const std::string& file, const std::string& title, const std::string& artist,
             const std::string& album, double seconds) {
        support::makeMusicFile(directory_.path() / file,
                               {seconds, {{"title", title}, {"artist", artist}, {"album", album}}});
    }
    tests::TemporaryDirectory directory_;
};

const Songs& songs() {
    static const Songs made;
    return made;
}

/// A phone with the three songs that has played a script.
PhoneRun played(const std::string& script) {
    return PhoneRun("music add " + songs().path() + "\n" + script);
}
std::string title(const json& state) {
    const json& info = state["nowPlaying"]["info"];
    return info.is_null() ? "nothing" : info.value("kMRMediaRemoteNowPlayingInfoTitle", "no title");
}
/// The objects of the notifications of that name.
std::vector<json> posted(const json& state, const std::string& name) {
    std::vector<json> objects;
    for (const auto& notification : state["notifications"])
        if (notification["name"] == name)
            objects.push_back(notification["object"]);
    return objects;
}
std::vector<json> trackChanges(const json& state) {
    return posted(state, "VelaTrackDidChangeNotification");
}

const std::string openPanel =
    "touch down 370 300\ntouch move 60 300 over 0.3\nwait 0.2\ntouch up\nwait 0.5\n";

TEST(Music, PlaysASongOfARealFile) {
    const PhoneRun run = played("play \"Paper Boats\"\nwait 5\nstate state.json\n");
    const json now = run.state()["nowPlaying"];
    EXPECT_EQ(now["application"], "com.apple.Music");
    EXPECT_EQ(now["playing"], true);
    EXPECT_EQ(now["radio"], false);
    EXPECT_NEAR(now["duration"], 30, 0.2);
    EXPECT_NEAR(now["elapsed"], 5, 1);
    EXPECT_EQ(now["info"]["kMRMediaRemoteNowPlayingInfoArtist"], "The Long Tide");
    EXPECT_EQ(now["info"]["kMRMediaRemoteNowPlayingInfoAlbum"], "Low Water");
    EXPECT_GT(now["info"]["kMRMediaRemoteNowPlayingInfoUniqueIdentifier"], 0);
}

TEST(Music, TellsOfEveryTrackOnce) {
    const PhoneRun run = played("play \"Harbour Lights\"\nwait 1\nplay next\nwait 1\nstate state.json\n");
    const auto changes = trackChanges(run.state());
    ASSERT_EQ(changes.size(), 2u);
    EXPECT_EQ(changes[0]["kMRMediaRemoteNowPlayingInfoTitle"], "Harbour Lights");
    EXPECT_NE(changes[1]["kMRMediaRemoteNowPlayingInfoTitle"], "Harbour Lights");
}

TEST(Music, GoesThroughTheLibraryInItsOrder) {
    const PhoneRun run =
        played("play Rain\nwait 1\nplay next\nwait 1\nstate second.json\nplay previous\nwait 1\n"
               "state first.json\nwait 10\nstate on.json\n");
    EXPECT_EQ(title(run.state("second.json")), "Harbour Lights");
    EXPECT_EQ(title(run.state("first.json")), "Rain");
    EXPECT_EQ(title(run.state("on.json")), "Harbour Lights");
}

TEST(Music, PausesResumesAndSeeks) {
    const PhoneRun run = played("play \"Paper Boats\"\nwait 3\nplay pause\nwait 4\nstate paused.json\nplay "
                                "resume\nseek 20\nwait 2.5\n"
                                "state on.json\n");
    EXPECT_EQ(run.state("paused.json")["nowPlaying"]["playing"], false);
    EXPECT_NEAR(run.state("paused.json")["nowPlaying"]["elapsed"], 3, 0.1);
    EXPECT_EQ(run.state("on.json")["nowPlaying"]["playing"], true);
    EXPECT_NEAR(run.state("on.json")["nowPlaying"]["elapsed"], 22, 0.6);
}

TEST(Music, APauseIsTheSameTrackTwice) {
    const PhoneRun run = played("play Rain\nwait 1\nplay pause\nwait 1\nstate state.json\n");
    EXPECT_EQ(trackChanges(run.state()).size(), 2u);
}

TEST(Music, NamesTheApplicationOnThePanel) {
    const PhoneRun run =
        played("play Rain\nwait 1\nstate song.json\nradio \"Tide|Band\"\nwait 1\nstate radio.json\n");
    const auto caption = [](const json& state) {
        for (const auto& label : PhoneRun::views(PhoneRun::window(state, "rightController"), "UILabel"))
            if (label["fontSize"] == 38.0)
                return label["text"].get<std::string>();
        return std::string("missing");
    };
    EXPECT_EQ(caption(run.state("song.json")), "Music");
    EXPECT_EQ(caption(run.state("radio.json")), "Radio");
}

TEST(Music, ARadioStreamHasNoLengthAndNoElapsedTimes) {
    const PhoneRun run = played("radio \"Tide|Band\"\nwait 5\nstate state.json\n");
    const json state = run.state();
    EXPECT_EQ(state["nowPlaying"]["radio"], true);
    EXPECT_EQ(state["nowPlaying"]["duration"], 0.0);
    EXPECT_EQ(title(state), "Tide");
    EXPECT_TRUE(posted(state, "VelaElapsedTimeDidChangeNotification").empty());
}

TEST(Music, ReportsExactlyTheEntriesThatAScriptNames) {
    const PhoneRun run =
        played("nowplaying title=Rain artist=\"Mira Vale\"\nelapsed 12.5\nwait 0.1\nstate one.json\n"
               "nowplaying none\nwait 0.1\nstate none.json\n");
    const auto changes = trackChanges(run.state("one.json"));
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0], json({{"kMRMediaRemoteNowPlayingInfoTitle", "Rain"},
                                {"kMRMediaRemoteNowPlayingInfoArtist", "Mira Vale"}}));
    EXPECT_EQ(run.state("one.json")["nowPlaying"]["playing"], true);
    EXPECT_EQ(posted(run.state("one.json"), "VelaElapsedTimeDidChangeNotification"), std::vector<json>{12.5});
    EXPECT_EQ(trackChanges(run.state("none.json")).back(), nullptr);
    EXPECT_EQ(title(run.state("none.json")), "nothing");
}

TEST(Music, SwallowsTheVolumeDisplayWhileThePanelsSliderIsHeldAndOnceAfterwards) {
    const PhoneRun run = played(
        "press volume-up\nwait 0.1\nstate one.json\nvolume-slider begin\npress volume-up\npress volume-up\n"
        "volume-slider end\npress volume-up\nstate held.json\npress volume-up\nstate after.json\n");
    EXPECT_EQ(run.state("one.json")["hud"], 1);
    EXPECT_EQ(run.state("held.json")["hud"], 1);
    EXPECT_EQ(run.state("after.json")["hud"], 2);
}

TEST(Music, AFingerOnThePanelsSliderShowsNoVolumeDisplayAndHoldsNoneBackAfterwards) {
    const PhoneRun run =
        played("play Rain\nwait 1\n" + openPanel +
               "state before.json\ntouch down 215 398\ntouch move 260 398 over 0.3\nwait 0.1\n"
               "touch up\nwait 0.1\nstate dragged.json\npress volume-up\nstate after.json\n");
    EXPECT_NE(run.state("dragged.json")["nowPlaying"]["volume"],
              run.state("before.json")["nowPlaying"]["volume"]);
    EXPECT_EQ(run.state("dragged.json")["hud"], 0);
    EXPECT_EQ(run.state("after.json")["hud"], 1);
}

TEST(Music, ThePanelsButtonsSkipAndPause) {
    const PhoneRun run =
        played("play Rain\nwait 1\n" + openPanel +
               "tap 315 355\nwait 1\nstate next.json\ntap 226 355\nwait 1\nstate paused.json\n"
               "tap 136 355\nwait 1\nstate previous.json\n");
    EXPECT_EQ(title(run.state("next.json")), "Harbour Lights");
    EXPECT_EQ(run.state("next.json")["nowPlaying"]["playing"], true);
    EXPECT_EQ(run.state("paused.json")["nowPlaying"]["playing"], false);
    EXPECT_EQ(title(run.state("previous.json")), "Rain");
}

TEST(Music, AFingerOnThePanelsTimeLineWindsTheSong) {
    const PhoneRun run = played("play \"Paper Boats\"\nwait 1\n" + openPanel +
                                "touch down 160 270\ntouch move 249 270 over 0.3\nstate held.json\ntouch up\n"
                                "wait 0.1\nstate wound.json\n");
    EXPECT_LT(run.state("held.json")["nowPlaying"]["elapsed"], 5);
    EXPECT_NEAR(run.state("wound.json")["nowPlaying"]["elapsed"], 17, 1.5);
}

TEST(Music, ATapOnThePanelsTitleOpensTheMusicApplicationAndClosesThePanel) {
    const PhoneRun run =
        played("play Rain\nwait 1\n" + openPanel + "tap 215 300\nwait 1\nstate state.json\n");
    EXPECT_EQ(run.state()["frontmost"], "com.apple.Music");
    EXPECT_EQ(PhoneRun::window(run.state(), "rightController")["hidden"], true);
}

TEST(Music, SurvivesHostileReports) {
    const std::string longText(10'000, 'x');
    const PhoneRun run = played(openPanel + "nowplaying title=" + longText +
                                " artist=\"a\\nb/../..\"\nwait 1\n"
                                "nowplaying duration=x uniqueIdentifier=y title=a\nwait 1\n"
                                "nowplaying duration=-1e300\nwait 1\nelapsed 1000000\nwait 1\n"
                                "shot shot.png\nstate state.json\n");
    EXPECT_EQ(trackChanges(run.state()).size(), 3u);
}

TEST(Music, SaysWhatAScriptAsksForInVain) {
    PhoneRun run;
    EXPECT_THAT(run.play("play \"No such song\"\n").errors, testing::HasSubstr("there is no song"));
    EXPECT_THAT(run.play("music add /no/such/place\n").errors, testing::HasSubstr("there is no directory"));
    EXPECT_EQ(run.play("seek 5\nplay next\nplay pause\nplay resume\nplay previous\n").exitCode, 0);
}

TEST(Music, ReadsTheDirectoryOfTheCommandLine) {
    const PhoneRun run("wait 1\nplay Rain\nwait 1\nstate state.json\n", {"--music", songs().path()});
    EXPECT_EQ(title(run.state()), "Rain");
}

} // namespace
