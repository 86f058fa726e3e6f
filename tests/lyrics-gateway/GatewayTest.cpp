// The gateway as a process of its own, with a lyrics service of the test's making.
#include "tests/support/BackgroundProcess.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/http/LocalHttpServer.h"

#include "platform/foundation/URLSession.h"
#include "platform/web/HTMLDocument.h"

#include <gtest/gtest.h>

#include <fstream>

#include <unistd.h>

using foundation::URLAnswer;
using tests::LocalHttpServer;
using Connection = LocalHttpServer::Connection;
using Request = LocalHttpServer::Request;

namespace {

constexpr const char* program = VELA_BINARY_DIR "/bin/vela-lyrics-gateway";

std::string textOf(const URLAnswer& answer) {
    return {answer.body.begin(), answer.body.end()};
}

struct Gateway : testing::Test {
    tests::TemporaryDirectory directory;
    std::unique_ptr<LocalHttpServer> service;
    std::unique_ptr<support::BackgroundProcess> process;
    std::string address;

    void serve(LocalHttpServer::Handler handler) {
        service = std::make_unique<LocalHttpServer>(std::move(handler));
        start(service->address());
    }
    void serveAnswer(int status, const std::string& body) {
        serve([=](const Request&, Connection& connection) {
            connection.answer(status, "application/json; charset=utf-8", body);
        });
    }
    void start(const std::string& serviceAddress) {
        int output = -1;
        process = std::make_unique<support::BackgroundProcess>(
            std::vector<std::string>{program, "--port", "0", "--directory", directory.path(), "--service",
                                     serviceAddress},
            std::vector<std::string>{}, &output);
        char byte;
        while (read(output, &byte, 1) == 1 && byte != '\n')
            address += byte;
        close(output);
        ASSERT_FALSE(address.empty());
    }
    URLAnswer get(const std::string& target) const {
        return foundation::URLSession().loadSynchronously({.url = address + target});
    }
    std::string box(const std::string& target) const {
        return web::HTMLDocument::parse(textOf(get(target)))
            ->innerHTMLOfElement("lyricbox", 0)
            .value_or("none");
    }
    static std::string song(const std::string& lyric) {
        return R"({"id":3396226,"name":"Song","trackName":"Song","artistName":"Band","albumName":"Album",)"
               R"("duration":233.0,"instrumental":false,"plainLyrics":)" +
               lyric + R"(,"syncedLyrics":"[00:17.12] one\n[00:20.41] two"})";
    }
    static constexpr const char* notFound =
        R"({"code":404,"name":"TrackNotFound","message":"Failed to find specified track"})";
};

TEST_F(Gateway, ServesWhatTheServiceKnows) {
    serveAnswer(200, song(R"("one\ntwo & \u00e9\n")"));
    EXPECT_EQ(box("/wiki/The%20Band:A%20Song"), "{\"content\":\"<p>one<br>two & é\",\"media\":[]}");
    ASSERT_EQ(service->requests().size(), 1u);
    const auto request = service->requests().front();
    EXPECT_EQ(request.target, "/api/get?track_name=A%20Song&artist_name=The%20Band");
    EXPECT_TRUE(request.headers.at("user-agent").starts_with("vela-lyrics-gateway/3."));
}

TEST_F(Gateway, ServesPlainTextForTheQueryForm) {
    serveAnswer(200, song(R"("one\ntwo")"));
    const auto answer = get("/wiki/?artist=Band&song=Song");
    EXPECT_EQ(answer.response.statusCode, 200);
    EXPECT_EQ(textOf(answer), "one\ntwo");
}

TEST_F(Gateway, PrefersAFile) {
    serveAnswer(200, song(R"("from the service")"));
    std::ofstream(directory.path() / "Band - Song.lrc") << "[00:01.00]from a file\n";
    EXPECT_EQ(box("/wiki/Band:Song"), "{\"content\":\"<p>from a file\",\"media\":[]}");
    EXPECT_TRUE(service->requests().empty());
}

TEST_F(Gateway, HasNoBoxForASongThatNobodyKnows) {
    serveAnswer(404, notFound);
    EXPECT_EQ(get("/wiki/Band:Song").response.statusCode, 404);
    EXPECT_EQ(box("/wiki/Band:Song"), "none");
    const auto plain = get("/wiki/?artist=Band&song=Song");
    EXPECT_EQ(plain.response.statusCode, 200);
    EXPECT_EQ(textOf(plain), "");
    EXPECT_EQ(service->requests().size(), 1u);
}

TEST_F(Gateway, HasNoBoxForMusicWithoutWords) {
    serveAnswer(200, song("null"));
    EXPECT_EQ(box("/wiki/Band:Song"), "none");
    EXPECT_EQ(get("/wiki/Band:Song").response.statusCode, 404);
}

TEST_F(Gateway, RemembersAnAnswer) {
    serveAnswer(200, song(R"("one")"));
    box("/wiki/Band:Song");
    EXPECT_EQ(box("/wiki/Band:Song"), "{\"content\":\"<p>one\",\"media\":[]}");
    EXPECT_EQ(service->requests().size(), 1u);
}

TEST_F(Gateway, DoesNotRememberAFailure) {
    std::atomic<int> count = 0;
    serve([&](const Request&, Connection& connection) {
        const int statuses[] = {429, 500, 503, 200};
        const int status = statuses[std::min<int>(count++, 3)];
        connection.answer(status, "application/json", status == 200 ? song(R"("one")") : "{}");
    });
    for (int failure = 0; failure < 3; ++failure)
        EXPECT_EQ(get("/wiki/Band:Song").response.statusCode, 502);
    EXPECT_EQ(box("/wiki/Band:Song"), "{\"content\":\"<p>one\",\"media\":[]}");
}

TEST_F(Gateway, FailsWhenTheServiceIsOfNoUse) {
    const std::vector<LocalHttpServer::Handler> services{
        [](const Request&, Connection& connection) { connection.answer(200, "text/html", "<html>hello"); },
        [](const Request&, Connection& connection) { connection.answer(200, "application/json", "[]"); },
        [](const Request&, Connection& connection) { connection.send("garbage"); },
        [](const Request&, Connection& connection) {
            connection.answer(200, "application/json", std::string(2'000'000, '['));
        },
        [](const Request& request, Connection& connection) { connection.redirect(request.target); }};
    for (const auto& handler : services) {
        address.clear();
        serve(handler);
        EXPECT_EQ(get("/wiki/Band:Song").response.statusCode, 502);
        const auto plain = get("/wiki/?artist=Band&song=Song");
        EXPECT_EQ(plain.response.statusCode, 502);
        EXPECT_EQ(textOf(plain), "");
    }
}

TEST_F(Gateway, FailsWhenNobodyListensAtTheService) {
    start("http://127.0.0.1:" + std::to_string(LocalHttpServer::unusedPort()));
    EXPECT_EQ(get("/wiki/Band:Song").response.statusCode, 502);
}

TEST_F(Gateway, DoesWithoutAService) {
    start("");
    EXPECT_EQ(get("/wiki/Band:Song").response.statusCode, 404);
    std::ofstream(directory.path() / "Band - Song.txt") << "one";
    EXPECT_EQ(box("/wiki/Band:Song"), "{\"content\":\"<p>one\",\"media\":[]}");
}

TEST_F(Gateway, AnswersNothingElse) {
    start("");
    std::ofstream(directory.path() / "secret.txt") << "secret";
    for (const char* target : {"/", "/secret.txt", "/wiki", "/wiki/", "/wiki/secret", "/../secret.txt",
                               "/wiki/../secret.txt", "/wiki/%2e%2e%2fsecret.txt:x"})
        EXPECT_EQ(get(target).response.statusCode, 404) << target;
    const auto posted =
        foundation::URLSession().loadSynchronously({.url = address + "/wiki/A:B", .method = "DELETE"});
    EXPECT_EQ(posted.response.statusCode, 405);
}

TEST_F(Gateway, ServesSeveralAtOnceWhileTheServiceIsSlow) {
    std::ofstream(directory.path() / "Band - Fast.txt") << "fast";
    serve([](const Request&, Connection& connection) { connection.waitForEnd(); });
    std::jthread slow([this] { get("/wiki/Band:Slow"); });
    while (service->requests().empty())
        std::this_thread::yield();
    EXPECT_EQ(box("/wiki/Band:Fast"), "{\"content\":\"<p>fast\",\"media\":[]}");
    service.reset();
}

TEST_F(Gateway, SaysThatItsPortIsInUse) {
    start("");
    const auto port = address.substr(address.rfind(':') + 1);
    const auto second = support::ChildProcess::run({program, "--port", port});
    EXPECT_EQ(second.exitCode, 3);
    EXPECT_NE(second.errors.find(port), std::string::npos);
}

TEST(GatewayProgram, HelpsAndRefuses) {
    const auto help = support::ChildProcess::run({program, "--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const char* option : {"--port", "--directory", "--service", "--help"})
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    const auto refused = support::ChildProcess::run({program, "--what"});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_NE(refused.errors.find("--what"), std::string::npos);
}

} // namespace
