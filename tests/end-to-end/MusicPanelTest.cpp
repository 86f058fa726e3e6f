// The music panel of the real phone: the lyric, the strip of songs and sharing, as a hand meets them. Nothing
// here asks the network: lyrics and covers are stored, and no lyrics wiki or catalogue is configured.
#include "tests/support/MusicFiles.h"
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>

namespace {

using nlohmann::json;
using tests::PhoneRun;

std::string longLyric() {
    std::string text;
    for (int line = 0; line < 100; ++line)
        text += "line " + std::to_string(line) + "\n";
    return text;
}

/// A property list with one entry.
std::string list(const std::string& key, const std::string& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict><key>" + key +
           "</key><string>" + value + "</string></dict></plist>\n";
}

/// A phone that knows the words of "Rain" by Mira Vale, and has been asked to open its music panel.
class MusicPanel {
public:
    MusicPanel() {
        write("Library/Application Support/Vela/configuration.plist",
              list("Social web host", "https://social.example"));
        write("var/mobile/Documents/Vela/fetchedLyrics.plist", list("Rain_Mira Vale", longLyric()));
    }
    void play(const std::string& script, const std::vector<std::string>& arguments = {}) {
        const auto child =
            run_.play("wait 1\nset Autoscroll bool true\nset \"Load songs with\" string artist\n"
                      "set Enable bool true\nset right_size_portrait number 0.85\nwait 0.6\n"
                      "touch down 370 300\ntouch move 60 300 over 0.3\nwait 0.2\ntouch up\n"
                      "wait 0.6\n" +
                          script,
                      arguments);
        ASSERT_EQ(child.exitCode, 0) << child.errors;
    }
    json lyric(const std::string& state) const { return view(state, "lyricView"); }
    json strip(const std::string& state) const { return view(state, "songsCollectionView"); }
    json ring(const std::string& state) const { return view(state, "M13ProgressViewRing"); }
    json state(const std::string& name) const { return run_.state(name); }
    std::string title(const std::string& name) const {
        return run_.state(name)["nowPlaying"]["info"]["kMRMediaRemoteNowPlayingInfoTitle"];
    }
    double offset(const std::string& state) const { return lyric(state)["contentOffset"][1]; }

private:
    json view(const std::string& state, const std::string& cls) const {
        return PhoneRun::views(PhoneRun::window(run_.state(state), "rightController"), cls).at(0);
    }
    void write(const std::string& path, const std::string& text) {
        const std::filesystem::path file = run_.root() + "/" + path;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << text;
    }
    PhoneRun run_;
};

const std::string playRain = "nowplaying title=Rain artist=\"Mira Vale\" duration=200\n";

TEST(MusicPanel, TheLyricFollowsTheSong) {
    MusicPanel panel;
    panel.play("state first.json\n" + playRain +
               "wait 1\nstate shown.json\nelapsed 100\nwait 10\nstate half.json\n"
               "elapsed 150\nwait 0.5\nstate on.json\n");
    EXPECT_EQ(panel.lyric("first.json")["text"], "Lyric");
    EXPECT_EQ(panel.lyric("shown.json")["text"], longLyric());
    EXPECT_EQ(panel.lyric("shown.json")["fontSize"], 16.0);
    EXPECT_EQ(panel.ring("shown.json")["hidden"], true);
    EXPECT_EQ(panel.ring("shown.json")["properties"]["indeterminate"], false);
    const json lyric = panel.lyric("half.json");
    const double way = lyric["contentSize"][1].get<double>() - lyric["frame"][3].get<double>();
    EXPECT_NEAR(panel.offset("half.json"), way / 2, way / 100);
    EXPECT_GT(panel.offset("on.json"), panel.offset("half.json"));
}

TEST(MusicPanel, AFingerTakesTheLyricOver) {
    MusicPanel panel;
    panel.play(playRain + "wait 1\nelapsed 100\nwait 5\ntouch down 215 500\ntouch move 215 600 over 0.3\n"
                          "state held.json\nwait 2\nstate still.json\ntouch up\nwait 10\nstate after.json\n");
    EXPECT_EQ(panel.lyric("held.json")["properties"]["canAutoScroll"], false);
    EXPECT_EQ(panel.offset("still.json"), panel.offset("held.json"));
    EXPECT_EQ(panel.lyric("after.json")["properties"]["canAutoScroll"], true);
    EXPECT_GT(panel.offset("after.json"), panel.offset("held.json"));
}

TEST(MusicPanel, RadioScrollsNothing) {
    MusicPanel panel;
    panel.play("radio \"Rain|Mira Vale\"\nwait 1\nelapsed 100\nwait 2\nstate state.json\n");
    EXPECT_EQ(panel.lyric("state.json")["text"], longLyric());
    EXPECT_EQ(panel.offset("state.json"), 0);
    EXPECT_EQ(panel.strip("state.json")["properties"]["songs"], 1);
}

TEST(MusicPanel, ASongWithoutWordsSaysSo) {
    MusicPanel panel;
    panel.play("nowplaying title=Unknown artist=\"Mira Vale\" duration=200\nwait 1\nstate none.json\n"
               "nowplaying title=Unknown\nwait 1\nstate nameless.json\n" +
               playRain + "wait 1\nnowplaying none\nwait 1\nstate silent.json\n");
    EXPECT_EQ(panel.lyric("none.json")["text"], "No lyric");
    EXPECT_EQ(panel.lyric("nameless.json")["text"], "Error with song");
    EXPECT_EQ(panel.strip("nameless.json")["properties"]["songs"], 1) << "the song before it";
    EXPECT_EQ(panel.lyric("silent.json")["text"], "Lyric");
    EXPECT_EQ(panel.strip("silent.json")["properties"]["songs"], 0);
}

TEST(MusicPanel, ATapOnARelatedSongPlaysIt) {
    tests::TemporaryDirectory songs;
    for (const char* title : {"One", "Two", "Three"})
        support::makeMusicFile(songs.path() / (std::string(title) + ".ogg"),
                               {20, {{"title", title}, {"artist", "Band"}, {"album", "Album"}}});
    MusicPanel panel;
    panel.play("play Two\nwait 1\nstate two.json\ntap 360 165\nwait 1\nstate other.json\n",
               {"--music", songs.path()});
    EXPECT_EQ(panel.title("two.json"), "Two");
    EXPECT_EQ(panel.strip("two.json")["properties"]["songs"], 3);
    EXPECT_NE(panel.title("other.json"), "Two");
    EXPECT_EQ(panel.strip("other.json")["contentOffset"], json({0.0, 0.0}));
    EXPECT_EQ(panel.strip("other.json")["properties"]["songs"], 3);
}

TEST(MusicPanel, ATapOnTheSongThatPlaysSharesIt) {
    MusicPanel panel;
    panel.play(
        "open com.apple.mobilenotes\nwait 1\ntouch down 370 300\ntouch move 60 300 over 0.3\nwait 0.2\n"
        "touch up\nwait 0.6\n" +
        playRain +
        "wait 1\ntap 220 165\nwait 1\nstate sheet.json\ntype \" now\"\n"
        "tap 330 142\nwait 1\nstate done.json\n");
    EXPECT_EQ(panel.state("sheet.json")["frontmost"], "") << "over the home screen";
    EXPECT_EQ(PhoneRun::window(panel.state("sheet.json"), "rightController")["hidden"], true);
    EXPECT_GT(panel.state("sheet.json")["keyboard"][3], 0);
    EXPECT_EQ(panel.state("sheet.json")["opened"], json::array());
    EXPECT_EQ(panel.state("done.json")["opened"],
              json({"https://social.example/intent/tweet?text="
                    "Listening%20to%20Rain%20by%20%20with%20%23Vela3%20now"}));
    EXPECT_EQ(panel.state("done.json")["keyboard"][3], 0);
}

} // namespace
