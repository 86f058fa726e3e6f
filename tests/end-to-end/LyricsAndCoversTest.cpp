// Words and pictures from the network to the screen: the phone, the lyrics gateway, and a server that plays
// the lyrics service and the catalogue.
#include "tests/support/BackgroundProcess.h"
#include "tests/support/PhoneRun.h"
#include "tests/support/http/LocalHttpServer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace {

using nlohmann::json;
using tests::LocalHttpServer;
using tests::PhoneRun;

struct LyricsAndCovers : testing::Test {
    PhoneRun phone;
    std::unique_ptr<LocalHttpServer> services;
    std::unique_ptr<support::BackgroundProcess> gateway;

    /// Services that know one song, of The Band.
    void serve() {
        services = std::make_unique<LocalHttpServer>(
            [this](const LocalHttpServer::Request& request, LocalHttpServer::Connection& connection) {
                const bool known = request.target.find("Known%20Song") != std::string::npos;
                if (request.target.starts_with("/api/get"))
                    connection.answer(known ? 200 : 404, "application/json",
                                      known ? R"({"plainLyrics":"first & second\nthird"})" : "{}");
                else if (request.target.starts_with("/search"))
                    connection.answer(200, "text/javascript", searchAnswer(known));
                else
                    connection.answer(200, "image/png", cover());
            });
        configure(startGateway(), services->address());
    }
    std::string searchAnswer(bool known) const {
        return known ? R"({"resultCount":1,"results":[{"artworkUrl100":")" + services->address() +
                           R"(/100x100bb.png"}]})"
                     : R"({"resultCount":0,"results":[]})";
    }
    /// Any picture: the phone's own icon of something.
    static std::string cover() {
        std::ifstream stream(VELA_SOURCE_DIR
                             "/resources/device/Library/PreferenceBundles/VelaSettings.bundle/happy.png",
                             std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::string startGateway() {
        int output = -1;
        gateway = std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{VELA_BINARY_DIR "/bin/vela-lyrics-gateway", "--port", "0", "--service",
                                     services->address()},
            std::vector<std::string>{}, &output);
        std::string address;
        char byte;
        while (read(output, &byte, 1) == 1 && byte != '\n')
            address += byte;
        close(output);
        return address;
    }
    void configure(const std::string& lyrics, const std::string& catalogue) const {
        const std::filesystem::path folder = phone.root() + "/Library/Application Support/Vela";
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "configuration.plist")
            << "<plist><dict><key>Lyrics</key><string>" << lyrics << "</string><key>Catalogue</key><string>"
            << catalogue << "</string></dict></plist>";
    }

    json play(const std::string& script) {
        const auto child = phone.play("wait 1\n" + script + "wait 1\nstate state.json\n");
        EXPECT_EQ(child.exitCode, 0) << child.errors;
        return phone.state();
    }
    static json lyricView(const json& state) {
        return PhoneRun::views(PhoneRun::window(state, "rightController"), "lyricView").at(0);
    }
    bool isStored(const std::string& artwork) const {
        return std::filesystem::exists(phone.root() + "/var/mobile/Documents/Vela/Artworks/" + artwork);
    }
};

TEST_F(LyricsAndCovers, ComeForASongOfTheRadio) {
    serve();
    const json state = play("radio \"Known Song|The Band\"\n");
    EXPECT_EQ(lyricView(state)["text"], "first & second\nthird");
    EXPECT_TRUE(isStored("Known Song_The Band@2x.png"));
    const auto targets = services->targets();
    EXPECT_NE(
        std::find(targets.begin(), targets.end(), "/search?term=Known%20Song+The%20Band&limit=1&entity=song"),
        targets.end());
}

TEST_F(LyricsAndCovers, AreKeptForTheNextTime) {
    serve();
    play("radio \"Known Song|The Band\"\n");
    const auto asked = services->requests().size();
    const json state = play("radio \"Known Song|The Band\"\n");
    EXPECT_EQ(lyricView(state)["text"], "first & second\nthird");
    EXPECT_EQ(services->requests().size(), asked);
}

TEST_F(LyricsAndCovers, AreSaidToBeMissingWhenNobodyKnowsTheSong) {
    serve();
    const json state = play("radio \"Strange Song|The Band\"\n");
    EXPECT_EQ(lyricView(state)["text"], "No lyric");
    EXPECT_TRUE(isStored("Strange Song_The Band@2x.png"));
}

TEST_F(LyricsAndCovers, LeaveThePhoneAsItIsWithoutANetwork) {
    const std::string nowhere = "http://127.0.0.1:" + std::to_string(LocalHttpServer::unusedPort());
    configure(nowhere, nowhere);
    const json state = play("radio \"Known Song|The Band\"\n");
    EXPECT_EQ(lyricView(state)["text"], "No lyric");
}

TEST_F(LyricsAndCovers, ReachNoOtherMachineFromAHeadlessPhone) {
    // The address of nobody: a phone that tried it would wait for longer than this test may take.
    configure("http://192.0.2.1", "http://192.0.2.1");
    const json state = play("radio \"Known Song|The Band\"\n");
    EXPECT_EQ(lyricView(state)["text"], "No lyric");
}

TEST_F(LyricsAndCovers, AreTheSameInEveryRun) {
    serve();
    const std::string script = "radio \"Known Song|The Band\"\nwait 0.1\nstate early.json\n";
    play(script);
    const json first = phone.state("early.json");
    std::filesystem::remove_all(phone.root() + "/var");
    play(script);
    EXPECT_EQ(phone.state("early.json"), first);
    EXPECT_EQ(lyricView(first)["text"], "first & second\nthird");
}

} // namespace
