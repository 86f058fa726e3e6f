#include "platform/foundation/URLSession.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/GlibRunLoop.h"
#include "platform/foundation/HTTPTransfer.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/http/LocalHttpServer.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using foundation::URLAnswer;
using foundation::URLErrorCode;
using foundation::URLSession;
using foundation::URLSessionConfiguration;
using tests::LocalHttpServer;
using Connection = LocalHttpServer::Connection;
using Request = LocalHttpServer::Request;

namespace {

/// The loop in real time, run until a request has ended.
struct URLSessionTest : testing::Test {
    tests::TemporaryDirectory root;
    foundation::GlibRunLoop loop;
    std::optional<URLAnswer> answer;

    URLSessionTest() {
        foundation::RunLoop::setMain(&loop);
        foundation::FileManager::shared().setDeviceRoot(root.path());
    }

    void runToEnd(foundation::URLSessionTask task) {
        const auto limit = loop.scheduleTimer(20, false, [this] { loop.stop(); });
        task.resume();
        loop.run();
    }
    foundation::URLSessionTask::Completion keepAnswer() {
        return [this](const URLAnswer& ended) {
            loop.performOnMain([this, ended] {
                answer = ended;
                loop.stop();
            });
        };
    }
    const URLAnswer& load(const foundation::URLRequest& request, URLSessionConfiguration configuration = {}) {
        answer.reset();
        runToEnd(URLSession(std::move(configuration)).dataTask(request, keepAnswer()));
        EXPECT_TRUE(answer) << "no answer within the limit";
        if (!answer)
            answer.emplace();
        return *answer;
    }
    std::string loadText(const std::string& url) {
        const auto& body = load({.url = url}).body;
        return {body.begin(), body.end()};
    }
    URLErrorCode loadError(const std::string& url, URLSessionConfiguration configuration = {}) {
        const auto& ended = load({.url = url}, std::move(configuration));
        EXPECT_TRUE(ended.body.empty());
        return ended.error ? ended.error->code : URLErrorCode(0);
    }
};

URLSessionConfiguration impatient() {
    return {.timeoutIntervalForRequest = 1, .timeoutIntervalForResource = 3};
}

TEST_F(URLSessionTest, HandsOverBodyStatusAndHeaders) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.answer(404, "text/plain; charset=utf-8", "not here");
    });
    const auto& ended = load({.url = server.address() + "/a?b=c"});
    EXPECT_FALSE(ended.error);
    EXPECT_EQ(ended.response.statusCode, 404);
    EXPECT_EQ(ended.response.headers.at("content-type"), "text/plain; charset=utf-8");
    EXPECT_EQ(std::string(ended.body.begin(), ended.body.end()), "not here");
    EXPECT_EQ(server.targets(), std::vector<std::string>{"/a?b=c"});
}

TEST_F(URLSessionTest, SendsMethodAndHeaders) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/plain", ""); });
    load({.url = server.address(), .method = "DELETE", .headers = {{"X-One", "1"}, {"Accept", "own"}}},
         {.HTTPAdditionalHeaders = {{"Accept", "application/json"}, {"X-Two", "2"}}});
    const auto request = server.requests().at(0);
    EXPECT_EQ(request.method, "DELETE");
    EXPECT_EQ(request.headers.at("x-one"), "1");
    EXPECT_EQ(request.headers.at("x-two"), "2");
    EXPECT_EQ(request.headers.at("accept"), "own");
}

TEST_F(URLSessionTest, SendsNoHeaderThatHoldsALineEnd) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/plain", ""); });
    load({.url = server.address(), .headers = {{"X-One", "1\r\nX-Evil: 2"}, {"X-Two", "2"}}});
    const auto request = server.requests().at(0);
    EXPECT_FALSE(request.headers.contains("x-evil"));
    EXPECT_FALSE(request.headers.contains("x-one"));
    EXPECT_EQ(request.headers.at("x-two"), "2");
}

TEST_F(URLSessionTest, SendsPathsAsTheyAre) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/plain", ""); });
    load({.url = server.address() + "/wiki/a/../b:c&d?e"});
    EXPECT_EQ(server.targets(), std::vector<std::string>{"/wiki/a/../b:c&d?e"});
}

TEST_F(URLSessionTest, FollowsRedirects) {
    LocalHttpServer server([](const Request& request, Connection& connection) {
        if (request.target == "/end")
            connection.answer(200, "text/plain", "there");
        else
            connection.redirect("/end");
    });
    EXPECT_EQ(loadText(server.address() + "/begin"), "there");
}

TEST_F(URLSessionTest, EndsARedirectWithoutEnd) {
    LocalHttpServer server(
        [](const Request& request, Connection& connection) { connection.redirect(request.target + "x"); });
    EXPECT_EQ(loadError(server.address() + "/"), URLErrorCode::TooManyRedirects);
    EXPECT_EQ(server.requests().size(), 1u + foundation::HTTPTransfer::mostRedirects);
}

TEST_F(URLSessionTest, FollowsNoRedirectToAnotherScheme) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.redirect("file:///etc/hostname"); });
    EXPECT_EQ(loadError(server.address()), URLErrorCode::UnsupportedURL);
}

TEST_F(URLSessionTest, LoadsNothingOfAnotherScheme) {
    for (const char* url :
         {"file:///etc/hostname", "ftp://127.0.0.1/", "gopher://127.0.0.1/", "dict://127.0.0.1/"})
        EXPECT_EQ(loadError(url), URLErrorCode::UnsupportedURL) << url;
}

TEST_F(URLSessionTest, RefusesWhatIsNoAddress) {
    EXPECT_EQ(loadError(""), URLErrorCode::BadURL);
    EXPECT_EQ(loadError("/wiki/A:B"), URLErrorCode::BadURL);
    EXPECT_EQ(loadError("http://127.0.0.1:99999999/"), URLErrorCode::BadURL);
    EXPECT_EQ(loadError("http://127.0.0.1/a\nb"), URLErrorCode::BadURL);
    EXPECT_EQ(loadError(std::string("http://127.0.0.1/\0.example", 26)), URLErrorCode::BadURL);
}

TEST_F(URLSessionTest, SaysThatNobodyListens) {
    EXPECT_EQ(loadError("http://127.0.0.1:" + std::to_string(LocalHttpServer::unusedPort())),
              URLErrorCode::CannotConnectToHost);
}

TEST_F(URLSessionTest, EndsWhenTheServerCutsTheConnection) {
    LocalHttpServer server([](const Request& request, Connection& connection) {
        if (request.target == "/part")
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
    });
    EXPECT_EQ(loadError(server.address() + "/nothing"), URLErrorCode::NetworkConnectionLost);
    EXPECT_EQ(loadError(server.address() + "/part"), URLErrorCode::NetworkConnectionLost);
}

TEST_F(URLSessionTest, EndsWhenTheAnswerIsNoHttp) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.send("220 mail.example ready\r\n"); });
    EXPECT_TRUE(load({.url = server.address()}).error);
}

TEST_F(URLSessionTest, GivesUpOnAServerThatIsSilent) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    EXPECT_EQ(loadError(server.address(), impatient()), URLErrorCode::TimedOut);
}

TEST_F(URLSessionTest, GivesUpOnAServerThatDripsItsAnswer) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        connection.drip(std::string(100000, 'x'), 0.1);
    });
    EXPECT_EQ(loadError(server.address(), {.timeoutIntervalForRequest = 1}), URLErrorCode::TimedOut);
}

TEST_F(URLSessionTest, GivesUpOnAServerThatDripsItsHeaders) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\nX-Long: ");
        connection.drip(std::string(100000, 'x'), 0.1);
    });
    EXPECT_EQ(loadError(server.address(), {.timeoutIntervalForRequest = 1}), URLErrorCode::TimedOut);
}

TEST_F(URLSessionTest, GivesUpWhenTheWholeTimeIsOver) {
    // Fast enough never to be called silent, and without an end.
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\n\r\n");
        connection.drip(std::string(1'000'000, 'x'), 0.001);
    });
    EXPECT_EQ(
        loadError(server.address(), {.timeoutIntervalForRequest = 30, .timeoutIntervalForResource = 0.5}),
        URLErrorCode::TimedOut);
}

TEST_F(URLSessionTest, RefusesAnAnswerThatSaysItIsTooLarge) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 101\r\n\r\n");
        connection.waitForEnd();
    });
    const auto& ended = load({.url = server.address(), .maximumBytes = 100});
    ASSERT_TRUE(ended.error);
    EXPECT_EQ(ended.error->code, URLErrorCode::DataLengthExceedsMaximum);
}

TEST_F(URLSessionTest, RefusesAnAnswerThatGrowsTooLarge) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\n\r\n");
        while (connection.send(std::string(1000, 'x'))) {
        }
    });
    const auto& ended = load({.url = server.address(), .maximumBytes = 100'000});
    ASSERT_TRUE(ended.error);
    EXPECT_EQ(ended.error->code, URLErrorCode::DataLengthExceedsMaximum);
}

TEST_F(URLSessionTest, RefusesHeadersWithoutEnd) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\n");
        while (connection.send("X-More: " + std::string(500, 'x') + "\r\n")) {
        }
    });
    EXPECT_EQ(loadError(server.address()), URLErrorCode::DataLengthExceedsMaximum);
}

/// The text as a server sends it compressed.
std::string deflated(const std::string& text) {
    std::string result(text.size() + 1024, '\0');
    GZlibCompressor* compressor = g_zlib_compressor_new(G_ZLIB_COMPRESSOR_FORMAT_ZLIB, -1);
    gsize taken = 0, made = 0;
    const auto ended = g_converter_convert(G_CONVERTER(compressor), text.data(), text.size(), result.data(),
                                           result.size(), G_CONVERTER_INPUT_AT_END, &taken, &made, nullptr);
    g_object_unref(compressor);
    EXPECT_EQ(ended, G_CONVERTER_FINISHED);
    return result.substr(0, made);
}

TEST_F(URLSessionTest, BoundsWhatACompressedAnswerBecomes) {
    const std::string bomb = deflated(std::string(20'000'000, 'x'));
    ASSERT_LT(bomb.size(), 100'000u);
    LocalHttpServer server([&](const Request&, Connection& connection) {
        connection.send("HTTP/1.1 200 OK\r\nContent-Encoding: deflate\r\nContent-Length: " +
                        std::to_string(bomb.size()) + "\r\nConnection: close\r\n\r\n" + bomb);
    });
    const auto& ended = load({.url = server.address(), .maximumBytes = 1'000'000});
    ASSERT_TRUE(ended.error);
    EXPECT_EQ(ended.error->code, URLErrorCode::DataLengthExceedsMaximum);
    EXPECT_EQ(load({.url = server.address()}).body.size(), 20'000'000u);
}

TEST_F(URLSessionTest, EndsACancelledTask) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    auto task = URLSession().dataTask({.url = server.address()}, keepAnswer());
    const auto timer = loop.scheduleTimer(0.05, false, [&] { task.cancel(); });
    runToEnd(task);
    ASSERT_TRUE(answer && answer->error);
    EXPECT_EQ(answer->error->code, URLErrorCode::Cancelled);
}

TEST_F(URLSessionTest, CompletesAwayFromTheMainThread) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/plain", ""); });
    std::thread::id thread;
    runToEnd(URLSession().dataTask({.url = server.address()}, [&](const URLAnswer&) {
        thread = std::this_thread::get_id();
        loop.performOnMain([this] { loop.stop(); });
    }));
    EXPECT_NE(thread, std::thread::id());
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST_F(URLSessionTest, KeepsTheLoopTurningWhileAServerIsSlow) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    int beats = 0;
    const auto beat = loop.scheduleTimer(0.01, true, [&] { ++beats; });
    EXPECT_EQ(loadError(server.address(), impatient()), URLErrorCode::TimedOut);
    EXPECT_GT(beats, 30);
}

TEST_F(URLSessionTest, OpensNoMoreConnectionsToAHostThanAllowed) {
    std::atomic<int> now = 0, most = 0, ended = 0;
    LocalHttpServer server([&](const Request&, Connection& connection) {
        const int open = ++now;
        most = std::max<int>(most, open);
        connection.drip("HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n", 0.001);
        --now;
        connection.send("\r\n");
    });
    const URLSession session({.HTTPMaximumConnectionsPerHost = 1});
    const auto limit = loop.scheduleTimer(20, false, [this] { loop.stop(); });
    for (int i = 0; i < 4; ++i)
        session
            .dataTask({.url = server.address()},
                      [&](const URLAnswer&) {
                          if (++ended == 4)
                              loop.performOnMain([this] { loop.stop(); });
                      })
            .resume();
    loop.run();
    EXPECT_EQ(ended, 4);
    EXPECT_EQ(most, 1);
}

TEST_F(URLSessionTest, KeepsADownloadUntilItsCompletionReturns) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "image/png", "a file"); });
    std::string location, content;
    runToEnd(URLSession().downloadTask({.url = server.address()},
                                       [&](const std::string& place, const auto&, const auto& error) {
                                           EXPECT_FALSE(error);
                                           location = place;
                                           const auto bytes = foundation::FileManager::shared().read(place);
                                           content.assign(bytes->begin(), bytes->end());
                                           loop.performOnMain([this] { loop.stop(); });
                                       }));
    EXPECT_EQ(content, "a file");
    EXPECT_FALSE(location.empty());
    const auto gone = [] {
        const auto left = foundation::FileManager::shared().contentsOfDirectory("/var/mobile/tmp");
        return left && left->empty();
    };
    const double limit = loop.now() + 10;
    while (!gone() && loop.now() < limit)
        std::this_thread::yield();
    EXPECT_TRUE(gone());
}

TEST_F(URLSessionTest, HandsNoFileOverWhenADownloadFails) {
    std::string location = "unchanged";
    std::optional<foundation::URLError> reported;
    const std::string address = "http://127.0.0.1:" + std::to_string(LocalHttpServer::unusedPort());
    runToEnd(URLSession().downloadTask({.url = address},
                                       [&](const std::string& place, const auto&, const auto& error) {
                                           location = place;
                                           reported = error;
                                           loop.performOnMain([this] { loop.stop(); });
                                       }));
    EXPECT_EQ(location, "");
    EXPECT_TRUE(reported);
}

TEST_F(URLSessionTest, KeepsToThisMachineWhenTold) {
    URLSession::setReach(URLSession::Reach::ThisMachine);
    LocalHttpServer server([](const Request& request, Connection& connection) {
        if (request.target == "/away")
            connection.redirect("http://192.0.2.1/");
        else
            connection.answer(200, "text/plain", "here");
    });
    EXPECT_EQ(loadError("http://192.0.2.1/"), URLErrorCode::NotConnectedToInternet);
    EXPECT_EQ(loadError("http://127.0.0.1.example/"), URLErrorCode::NotConnectedToInternet);
    EXPECT_EQ(loadText(server.address()), "here");
    EXPECT_EQ(loadError(server.address() + "/away"), URLErrorCode::CannotConnectToHost);
    URLSession::setReach(URLSession::Reach::Everywhere);
}

TEST(URLSession, LoadsOnTheCallingThreadWithoutALoop) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/plain", "text"); });
    const URLAnswer answer = URLSession().loadSynchronously({.url = server.address()});
    EXPECT_FALSE(answer.error);
    EXPECT_EQ(std::string(answer.body.begin(), answer.body.end()), "text");
}

TEST(URLSession, DropsItsTasksWhenTheLoopEnds) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    bool called = false;
    {
        foundation::GlibRunLoop loop;
        foundation::RunLoop::setMain(&loop);
        URLSession().dataTask({.url = server.address()}, [&](const URLAnswer&) { called = true; }).resume();
    }
    EXPECT_FALSE(called);
}

} // namespace
