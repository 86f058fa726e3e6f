// The phone in its window, with real sound and real other players, on a session bus of its own.
#include "tests/support/MusicFiles.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/VirtualDisplay.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <fstream>
#include <thread>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using support::ChildProcess;

class SessionMusic : public testing::Test {
protected:
    SessionMusic() {
        fs::create_directory(directory_.path() / "music");
        support::makeMusicFile(directory_.path() / "music" / "rain.mp3",
                               {60, {{"title", "Rain"}, {"artist", "Mira Vale"}}});
    }
    std::string path(const std::string& name) const { return directory_.path() / name; }

    /// Starts the phone in its window, which plays the script and ends.
    std::unique_ptr<support::BackgroundProcess> start(const std::string& script) {
        std::ofstream(path("test.phone")) << script;
        return std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{VELA_BINARY_DIR "/bin/vela-phone", "--root", path("root"), "--script",
                                     path("test.phone"), "--out", path("out"), "--music", path("music")},
            std::vector<std::string>{"DISPLAY=" + display_.name(), "GDK_BACKEND=x11", "GSK_RENDERER=cairo",
                                     "HOME=" + path("home")});
    }
    json state(const std::string& name = "state.json") const {
        std::ifstream stream(path("out") + "/" + name);
        return json::parse(stream);
    }
    /// What playerctl answers of a player, without the line's end.
    static std::string ask(const std::string& player, std::vector<std::string> words) {
        words.insert(words.begin(), {"/usr/bin/playerctl", "--player=" + player});
        std::string answer = ChildProcess::run(words).output;
        while (answer.ends_with('\n'))
            answer.pop_back();
        return answer;
    }
    /// Asks until the answer is the one that is hoped for, or twenty seconds are over.
    static std::string askUntil(const std::string& hoped, const std::string& player,
                                const std::vector<std::string>& words) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        std::string answer = ask(player, words);
        while (answer != hoped && std::chrono::steady_clock::now() < limit) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            answer = ask(player, words);
        }
        return answer;
    }

    tests::TemporaryDirectory directory_;
    support::PrivateBus bus_;
    support::VirtualDisplay display_;
};

TEST_F(SessionMusic, PlaysARealFileAndObeysOtherPrograms) {
    const auto phone = start("wait 1\nplay Rain\nwait 12\nstate state.json\n");
    ASSERT_EQ(askUntil("Playing", "vela", {"status"}), "Playing");
    EXPECT_EQ(ask("vela", {"metadata", "title"}), "Rain");
    ask("vela", {"position", "30"});
    ask("vela", {"volume", "0.25"});
    ask("vela", {"pause"});
    EXPECT_EQ(askUntil("Paused", "vela", {"status"}), "Paused");
    EXPECT_EQ(phone->waitForEnd(), 0);
    const json now = state()["nowPlaying"];
    EXPECT_EQ(now["playing"], false);
    EXPECT_NEAR(now["elapsed"], 30, 2);
    EXPECT_NEAR(now["duration"], 60, 0.2);
    EXPECT_EQ(now["volume"], 0.25);
}

TEST_F(SessionMusic, ShowsAPlayerThatStartsLaterAndGoesBackToItsOwn) {
    const auto phone =
        start("wait 1\nplay Rain\nwait 6\nstate other.json\nplay pause\nwait 2\nstate paused.json\n"
              "wait 3\nstate gone.json\n");
    ASSERT_EQ(askUntil("Playing", "vela", {"status"}), "Playing");
    const std::string file = path("music") + "/rain.mp3";
    auto player = std::make_unique<support::BackgroundProcess>(
        std::vector<std::string>{"mpv", "--no-video", "--ao=null", "--really-quiet", "--no-terminal",
                                 "--title=Elsewhere", file},
        std::vector<std::string>{"HOME=" + path("home")});
    EXPECT_EQ(askUntil("Paused", "mpv", {"status"}), "Paused"); // by the phone's script
    std::this_thread::sleep_for(std::chrono::milliseconds(2500));
    player.reset();
    EXPECT_EQ(phone->waitForEnd(), 0);
    const json other = state("other.json")["nowPlaying"];
    EXPECT_EQ(other["application"], "mpv");
    EXPECT_EQ(other["playing"], true);
    EXPECT_EQ(other["info"]["kMRMediaRemoteNowPlayingInfoTitle"], "Rain");
    EXPECT_FALSE(other["info"].contains("kMRMediaRemoteNowPlayingInfoUniqueIdentifier"));
    EXPECT_EQ(state("paused.json")["nowPlaying"]["application"], "com.apple.Music"); // which plays on
    EXPECT_EQ(state("gone.json")["nowPlaying"]["application"], "com.apple.Music");
}

TEST_F(SessionMusic, PlaysARadioStationWithTheTitlesThatItSends) {
    support::makeMusicFile(path("stream.mp3"), {20}); // without tags, as streams are
    int output = -1;
    const support::BackgroundProcess server(
        {"python3", VELA_SOURCE_DIR "/tests/support/stream_server.py", path("stream.mp3")}, {}, &output);
    std::string port;
    for (char c = 0; read(output, &c, 1) == 1 && c != '\n';)
        port += c;
    close(output);
    fs::create_directories(path("root") + "/var/mobile/Library/Preferences");
    std::ofstream(path("root") + "/var/mobile/Library/Preferences/com.apple.radio.plist")
        << "<plist version=\"1.0\"><dict><key>Radio stations</key><array><dict><key>Name</key><string>Test"
           "</string><key>Address</key><string>http://127.0.0.1:"
        << port << "/radio</string></dict></array></dict></plist>";
    const auto phone = start("open com.apple.Radio\nwait 1\ntap 180 94\nwait 8\nstate state.json\n");
    EXPECT_EQ(phone->waitForEnd(), 0);
    const json now = state()["nowPlaying"];
    EXPECT_EQ(now["radio"], true);
    EXPECT_EQ(now["playing"], true);
    EXPECT_EQ(now["info"]["kMRMediaRemoteNowPlayingInfoArtist"], "The Singer");
    EXPECT_THAT(now["info"]["kMRMediaRemoteNowPlayingInfoTitle"].get<std::string>(),
                testing::EndsWith("Song"));
    EXPECT_EQ(now["info"]["kMRMediaRemoteNowPlayingInfoRadioStationName"], "Test");
}

} // namespace
