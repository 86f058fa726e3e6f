// Music of other programs in the session.
#include "tests/session/SessionTest.h"

namespace tests {

class SessionMusic : public SessionTest {
protected:
    /// A real player, paused, with a song of the device.
    std::unique_ptr<support::BackgroundProcess> startPlayer() {
        std::filesystem::path song;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(VELA_SOURCE_DIR "/resources/music/songs"))
            if (entry.is_regular_file())
                song = entry.path();
        return std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{"mpv", "--no-config", "--no-video", "--ao=null", "--no-terminal",
                                     "--loop", "--script=/usr/lib/mpv-mpris/mpris.so",
                                     "--force-media-title=A song of its own", song},
            bus().environment());
    }
    nlohmann::json nowPlaying() {
        const auto all = state();
        return all.is_null() ? nlohmann::json() : all["nowPlaying"];
    }
};

TEST_F(SessionMusic, ShowsWhatAPlayerPlaysAndDrivesIt) {
    start();
    ASSERT_TRUE(nowPlaying()["application"].is_null());
    auto player = startPlayer();
    ASSERT_TRUE(eventually([&] { return nowPlaying()["playing"] == true; })) << nowPlaying();
    EXPECT_EQ(nowPlaying()["application"], "mpv");
    EXPECT_NE(nowPlaying()["info"].dump().find("A song of its own"), std::string::npos) << nowPlaying();
    player.reset();
    EXPECT_TRUE(eventually([&] { return nowPlaying()["playing"] == false; })) << nowPlaying();
}

} // namespace tests
