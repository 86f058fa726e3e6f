#include "platform/foundation/OutsideWork.h"

#include "platform/foundation/GlibRunLoop.h"
#include "platform/foundation/URLSession.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "tests/support/http/LocalHttpServer.h"

#include <gtest/gtest.h>

#include <future>

using foundation::OutsideWork;
using foundation::URLAnswer;
using foundation::URLSession;
using foundation::VirtualRunLoop;
using tests::LocalHttpServer;
using Connection = LocalHttpServer::Connection;
using Request = LocalHttpServer::Request;

namespace {

TEST(OutsideWork, TellsEndsAtOnceWhileNobodyHoldsThem) {
    bool told = false;
    OutsideWork::shared().end(OutsideWork::shared().begin(), [&] { told = true; });
    EXPECT_TRUE(told);
}

struct OutsideWorkInVirtualTime : testing::Test {
    VirtualRunLoop loop;
    std::vector<std::string> ended;

    OutsideWorkInVirtualTime() { foundation::RunLoop::setMain(&loop); }

    void load(const std::string& url) {
        URLSession()
            .dataTask({.url = url},
                      [this, url](const URLAnswer& answer) {
                          ended.push_back(url.substr(url.rfind('/') + 1) + " at " +
                                          std::to_string(loop.now()) + (answer.error ? " failed" : ""));
                      })
            .resume();
    }
};

TEST_F(OutsideWorkInVirtualTime, RequestsTakeNoTime) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.drip("HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n\r\n", 0.001);
    });
    load(server.address() + "/a");
    loop.advance(1);
    EXPECT_EQ(ended, std::vector<std::string>{"a at 0.000000"});
}

TEST_F(OutsideWorkInVirtualTime, EndsComeInTheOrderOfTheBeginnings) {
    std::promise<void> secondCame;
    auto second = secondCame.get_future().share();
    LocalHttpServer server([&](const Request& request, Connection& connection) {
        if (request.target == "/first")
            second.wait();
        connection.answer(200, "text/plain", "");
        if (request.target == "/second")
            secondCame.set_value();
    });
    load(server.address() + "/first");
    load(server.address() + "/second");
    loop.advance(1);
    EXPECT_EQ(ended, (std::vector<std::string>{"first at 0.000000", "second at 0.000000"}));
}

TEST_F(OutsideWorkInVirtualTime, WhatAnEndBeginsEndsAtTheSameMoment) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/plain", ""); });
    bool further = false;
    const auto timer = loop.scheduleTimer(0.5, false, [&] {
        URLSession()
            .dataTask({.url = server.address()},
                      [&](const URLAnswer&) {
                          URLSession()
                              .dataTask({.url = server.address()},
                                        [&](const URLAnswer&) { further = loop.now() == 0.5; })
                              .resume();
                      })
            .resume();
    });
    loop.advance(1);
    EXPECT_TRUE(further);
}

TEST_F(OutsideWorkInVirtualTime, TheClockGoesOnWhenPatienceIsAtItsEnd) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    loop.setPatience(0.1);
    load(server.address() + "/silent");
    loop.advance(1);
    EXPECT_TRUE(ended.empty());
    EXPECT_EQ(loop.now(), 1);
}

TEST_F(OutsideWorkInVirtualTime, WithoutPatienceEndsComeWhenTheyCome) {
    std::promise<void> released;
    auto release = released.get_future().share();
    LocalHttpServer server([&](const Request&, Connection& connection) {
        release.wait();
        connection.answer(200, "text/plain", "");
    });
    loop.setPatience(0);
    load(server.address() + "/late");
    loop.advance(1);
    EXPECT_TRUE(ended.empty());
    released.set_value();
    loop.setPatience(10);
    loop.advance(1);
    EXPECT_EQ(ended, std::vector<std::string>{"late at 1.000000"});
}

TEST(OutsideWork, AnEndedLoopHearsNothingMore) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    {
        VirtualRunLoop loop;
        foundation::RunLoop::setMain(&loop);
        URLSession().dataTask({.url = server.address()}, [](const URLAnswer&) { FAIL(); }).resume();
        loop.turn();
    }
    VirtualRunLoop next;
    foundation::RunLoop::setMain(&next);
    next.advance(1);
}

} // namespace
