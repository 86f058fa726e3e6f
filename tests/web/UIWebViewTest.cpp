#include "platform/web/UIWebView.h"

#include "platform/foundation/VirtualRunLoop.h"
#include "tests/support/http/LocalHttpServer.h"

#include <gtest/gtest.h>

#include <future>

using foundation::URLErrorCode;
using tests::LocalHttpServer;
using web::UIWebView;
using Connection = LocalHttpServer::Connection;
using Request = LocalHttpServer::Request;

namespace {

constexpr const char* boxScript = "document.getElementsByClassName('box')[0].innerHTML;";

/// A transcript of what the view's delegate is told.
struct UIWebViewTest : testing::Test, web::UIWebViewDelegate {
    foundation::VirtualRunLoop loop;
    std::shared_ptr<UIWebView> view = std::make_shared<UIWebView>();
    std::vector<std::string> calls;

    UIWebViewTest() {
        foundation::RunLoop::setMain(&loop);
        view->setDelegate(this);
    }

    void webViewDidStartLoad(UIWebView&) override { calls.push_back("start"); }
    void webViewDidFinishLoad(UIWebView& one) override {
        calls.push_back("finish " + one.stringByEvaluatingJavaScriptFromString(boxScript));
    }
    void webView(UIWebView&, const foundation::URLError& error) override {
        calls.push_back("fail " + std::to_string(static_cast<int>(error.code)));
    }

    std::vector<std::string> load(const std::string& url) {
        calls.clear();
        view->loadRequest({.url = url});
        loop.advance(1);
        return calls;
    }
};

using Calls = std::vector<std::string>;

std::string page(const std::string& content) {
    return "<!DOCTYPE html><html><body><div class='box'>" + content + "</div></body></html>";
}

TEST_F(UIWebViewTest, TellsOfStartAndFinish) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(200, "text/html", page("a")); });
    view->loadRequest({.url = server.address()});
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(view->isLoading());
    loop.advance(1);
    EXPECT_EQ(calls, (Calls{"start", "finish a"}));
    EXPECT_FALSE(view->isLoading());
}

TEST_F(UIWebViewTest, FinishesErrorPagesToo) {
    LocalHttpServer server(
        [](const Request&, Connection& connection) { connection.answer(503, "text/html", page("sorry")); });
    EXPECT_EQ(load(server.address()), (Calls{"start", "finish sorry"}));
}

TEST_F(UIWebViewTest, TellsOfFailure) {
    EXPECT_EQ(load("http://127.0.0.1:" + std::to_string(LocalHttpServer::unusedPort())),
              (Calls{"start", "fail -1004"}));
    EXPECT_EQ(load("no address"), (Calls{"start", "fail -1000"}));
}

TEST_F(UIWebViewTest, FailsForAPageThatIsTooLarge) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.answer(200, "text/html", page(std::string(UIWebView::largestPage, 'x')));
    });
    EXPECT_EQ(load(server.address()), (Calls{"start", "fail -1103"}));
}

TEST_F(UIWebViewTest, IsUsedAgain) {
    LocalHttpServer server([](const Request& request, Connection& connection) {
        connection.answer(200, "text/html", page(request.target));
    });
    EXPECT_EQ(load(server.address() + "/1"), (Calls{"start", "finish /1"}));
    EXPECT_EQ(load(server.address() + "/2"), (Calls{"start", "finish /2"}));
}

TEST_F(UIWebViewTest, ANewerLoadCancelsTheOneUnderWay) {
    LocalHttpServer server([](const Request& request, Connection& connection) {
        if (request.target == "/slow")
            connection.waitForEnd();
        else
            connection.answer(200, "text/html", page("new"));
    });
    loop.setPatience(0);
    load(server.address() + "/slow");
    EXPECT_EQ(calls, Calls{"start"});
    loop.setPatience(10);
    EXPECT_EQ(load(server.address() + "/new"), (Calls{"start", "fail -999", "finish new"}));
}

TEST_F(UIWebViewTest, APageThatCameTooLateCountsAsCancelled) {
    LocalHttpServer server([](const Request& request, Connection& connection) {
        connection.answer(200, "text/html", page(request.target));
    });
    view->loadRequest({.url = server.address() + "/old"});
    while (server.requests().empty())
        std::this_thread::yield();
    // The old page may have come by now or not; its delegate hears the same.
    EXPECT_EQ(load(server.address() + "/new"), (Calls{"start", "fail -999", "finish /new"}));
}

TEST_F(UIWebViewTest, StopsLoading) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    view->loadRequest({.url = server.address()});
    view->stopLoading();
    EXPECT_FALSE(view->isLoading());
    loop.advance(1);
    EXPECT_EQ(calls, Calls{"fail -999"});
    view->stopLoading();
    loop.advance(1);
    EXPECT_EQ(calls, Calls{"fail -999"});
}

TEST_F(UIWebViewTest, MayGoWhileItLoads) {
    LocalHttpServer server([](const Request&, Connection& connection) { connection.waitForEnd(); });
    view->loadRequest({.url = server.address()});
    view.reset();
    loop.advance(1);
    EXPECT_TRUE(calls.empty());
}

TEST_F(UIWebViewTest, UnderstandsOneQuestionOnly) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.answer(200, "text/html", page("a") + page("b"));
    });
    EXPECT_EQ(view->stringByEvaluatingJavaScriptFromString(boxScript), "");
    load(server.address());
    const auto evaluate = [this](const char* script) {
        return view->stringByEvaluatingJavaScriptFromString(script);
    };
    EXPECT_EQ(evaluate("document.getElementsByClassName('box')[1].innerHTML;"), "b");
    for (const char* script :
         {"", "window.alert=null;", "document.title", "document.getElementsByClassName('box')[2].innerHTML;",
          "document.getElementsByClassName('box')[-1].innerHTML;", "document.getElementsByClassName('box",
          "document.getElementsByClassName('box')[0].outerHTML;",
          "document.getElementsByClassName('box')[99999999999999999999999].innerHTML;"})
        EXPECT_EQ(evaluate(script), "") << script;
}

TEST_F(UIWebViewTest, ReadsPagesInTheEncodingThatTheServerNames) {
    LocalHttpServer server([](const Request&, Connection& connection) {
        connection.answer(200, "text/html; charset=iso-8859-1", page("caf\xE9"));
    });
    EXPECT_EQ(load(server.address()), (Calls{"start", "finish café"}));
}

} // namespace
