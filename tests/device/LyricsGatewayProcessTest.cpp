#include "hosts/device/LyricsGatewayProcess.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/GlibRunLoop.h"
#include "platform/foundation/URLSession.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/http/LocalHttpServer.h"

#include <gtest/gtest.h>

#include <fstream>

using device::LyricsGatewayProcess;
using foundation::FileManager;
using foundation::PropertyList;
using tests::LocalHttpServer;

namespace {

struct LyricsGatewayProcessTest : testing::Test {
    tests::TemporaryDirectory root;
    tests::TemporaryDirectory lyrics;
    foundation::GlibRunLoop loop;

    LyricsGatewayProcessTest() {
        foundation::RunLoop::setMain(&loop);
        FileManager::shared().setDeviceRoot(root.path());
        FileManager::shared().createDirectories("/Library/Application Support/Vela");
        std::ofstream(lyrics.path() / "Band - Song.txt") << "a lyric";
    }

    static void configure(const PropertyList& address) {
        FileManager::shared().writeDictionaryAtomically(
            "/Library/Application Support/Vela/configuration.plist", {{"Lyrics", address}});
    }
    static std::string address(int port) { return "http://127.0.0.1:" + std::to_string(port); }

    /// What is answered at the port; empty when nobody listens.
    static std::string ask(int port) {
        const auto answer = foundation::URLSession().loadSynchronously(
            {.url = address(port) + "/wiki/?artist=Band&song=Song"});
        return {answer.body.begin(), answer.body.end()};
    }
    /// Runs the loop until the port answers so.
    bool comesToAnswer(int port, const std::string& text) {
        bool answered = false;
        const auto look = loop.scheduleTimer(0.05, true, [&] {
            if (ask(port) != text)
                return;
            answered = true;
            loop.stop();
        });
        const auto limit = loop.scheduleTimer(20, false, [&] { loop.stop(); });
        loop.run();
        return answered;
    }
};

TEST_F(LyricsGatewayProcessTest, IsWantedWhenThisMachineIsConfigured) {
    const std::pair<PropertyList, std::optional<int>> cases[] = {{"http://127.0.0.1:47621", 47621},
                                                                 {"http://127.0.0.1:1/", 1},
                                                                 {"http://127.0.0.1", std::nullopt},
                                                                 {"http://127.0.0.1:0", std::nullopt},
                                                                 {"http://127.0.0.1:65536", std::nullopt},
                                                                 {"http://127.0.0.1:80/wiki", std::nullopt},
                                                                 {"http://127.0.0.1:80x", std::nullopt},
                                                                 {"https://127.0.0.1:80", std::nullopt},
                                                                 {"http://lyrics.example", std::nullopt},
                                                                 {"", std::nullopt},
                                                                 {7, std::nullopt}};
    for (const auto& [configured, port] : cases) {
        configure(configured);
        EXPECT_EQ(LyricsGatewayProcess::configuredPort(), port);
    }
}

TEST_F(LyricsGatewayProcessTest, IsNotWantedWithoutConfiguration) {
    EXPECT_EQ(LyricsGatewayProcess::configuredPort(), std::nullopt);
    const LyricsGatewayProcess gateway({lyrics.path()});
}

TEST_F(LyricsGatewayProcessTest, ServesLyricsUntilItGoes) {
    const int port = LocalHttpServer::unusedPort();
    configure(address(port));
    {
        const LyricsGatewayProcess gateway({lyrics.path()});
        EXPECT_TRUE(comesToAnswer(port, "a lyric"));
    }
    EXPECT_TRUE(comesToAnswer(port, ""));
}

TEST_F(LyricsGatewayProcessTest, TakesThePlaceOfAnotherThatGoes) {
    const int port = LocalHttpServer::unusedPort();
    configure(address(port));
    auto first = std::make_unique<LyricsGatewayProcess>(std::vector<std::filesystem::path>{lyrics.path()});
    ASSERT_TRUE(comesToAnswer(port, "a lyric"));
    tests::TemporaryDirectory others;
    std::ofstream(others.path() / "Band - Song.txt") << "another lyric";
    const LyricsGatewayProcess second({others.path()});
    EXPECT_EQ(ask(port), "a lyric");
    first.reset();
    EXPECT_TRUE(comesToAnswer(port, "another lyric"));
}

} // namespace
