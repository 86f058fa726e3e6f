#include "hosts/phone/screens/ComposeSheet.h"
#include "platform/foundation/FileManager.h"
#include "platform/preferences/PreferencesPort.h"
#include "platform/preferences/Presentation.h"
#include "platform/preferences/SLComposeViewController.h"
#include "platform/toolkit/views/TextInput.h"
#include "tests/support/PhoneTest.h"
#include "tests/support/TemporaryDirectory.h"

#include <gmock/gmock.h>

using namespace toolkit;
using preferences::SLComposeViewController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct PresenterTest : support::PhoneTest {
    PresenterTest() {
        foundation::FileManager::shared().setDeviceRoot(root.path());
        foundation::FileManager::shared().createDirectories("/Library/Application Support/Vela");
        foundation::FileManager::shared().writeDictionaryAtomically(
            "/Library/Application Support/Vela/configuration.plist",
            {{"Social web host", "https://social.example"}});
        start();
    }
    std::shared_ptr<SLComposeViewController> present(const std::string& text) {
        auto sheet = std::make_shared<SLComposeViewController>(SLComposeViewController::serviceTypeTwitter);
        sheet->setInitialText(text);
        sheet->setCompletionHandler(
            [this, weak = std::weak_ptr(sheet)](SLComposeViewController::Result result) {
                results.push_back(result);
                preferences::dismiss(*weak.lock(), true);
            });
        preferences::presentFromKeyWindow(sheet, true);
        loop.advance(0.5);
        return sheet;
    }
    /// The sheet that stands on the screen; null when there is none.
    static UIView* sheetOnScreen() {
        for (UIWindow* window : WindowServer::shared().windows())
            if (!window->isHidden() && window->rootViewController())
                for (const auto& view : window->rootViewController()->view()->subviews())
                    if (dynamic_cast<phone::ComposeSheet*>(view.get()))
                        return view.get();
        return nullptr;
    }
    /// The middle of the sheet's button with that title, on the screen.
    static Point button(const std::string& title) {
        for (const auto& card : sheetOnScreen()->subviews())
            for (const auto& part : card->subviews())
                if (const auto* found = dynamic_cast<UIButton*>(part.get()); found && found->title() == title)
                    return found->convertPointTo(found->bounds().center(), nullptr);
        ADD_FAILURE() << "no button " << title;
        return {};
    }

    tests::TemporaryDirectory root;
    std::vector<SLComposeViewController::Result> results;
};

TEST_F(PresenterTest, ShowsAMessageToWriteWithTheKeyboardUp) {
    present("Listening");
    ASSERT_NE(sheetOnScreen(), nullptr);
    EXPECT_EQ(sheetOnScreen()->alpha(), 1);
    EXPECT_GT(phone().visibleKeyboardFrame().height, 0);
    const UIView& card = *sheetOnScreen()->subviews().front();
    EXPECT_GE(card.frame().y, 20);
    EXPECT_LE(card.frame().maxY(), phone().visibleKeyboardFrame().y);
}

TEST_F(PresenterTest, PostHandsTheMessageToTheNetworksPage) {
    present("Listening to a & b");
    phone().typeText(" #now");
    tap(button("Post"));
    EXPECT_THAT(
        phone().openedAddresses(),
        ElementsAre("https://social.example/intent/tweet?text=Listening%20to%20a%20%26%20b%20%23now"));
    EXPECT_THAT(results, ElementsAre(SLComposeViewController::Result::Done));
    loop.advance(0.5);
    EXPECT_EQ(sheetOnScreen(), nullptr);
    EXPECT_EQ(phone().visibleKeyboardFrame().height, 0);
}

TEST_F(PresenterTest, CancelSendsNothing) {
    present("Listening");
    const Point cancel = button("Cancel");
    tap(cancel);
    tap(cancel);
    EXPECT_THAT(results, ElementsAre(SLComposeViewController::Result::Cancelled)) << "and answers once";
    EXPECT_THAT(phone().openedAddresses(), IsEmpty());
}

TEST_F(PresenterTest, AnEmptyMessageCannotBePosted) {
    present(" ");
    tap(button("Post"));
    EXPECT_THAT(results, IsEmpty());
    phone().typeText("x");
    tap(button("Post"));
    EXPECT_THAT(results, ElementsAre(SLComposeViewController::Result::Done));
}

TEST_F(PresenterTest, TurnsWithATablet) {
    startTablet();
    present("Listening");
    phone().rotate(DeviceOrientation::LandscapeLeft);
    loop.advance(1);
    EXPECT_EQ(sheetOnScreen()->frame(), Rect(0, 0, 1024, 768));
}

TEST_F(PresenterTest, WithoutABrowserTheServiceIsNotAvailable) {
    EXPECT_TRUE(SLComposeViewController::isAvailableForServiceType("")) << "headless it is only noted";
    phone::PhoneConfiguration configuration;
    std::vector<std::string> opened;
    bool browser = false;
    configuration.outside.canOpen = [&](const std::string& address) {
        return browser && address == "https:";
    };
    configuration.outside.open = [&](const std::string& address) { opened.push_back(address); };
    start(configuration);
    EXPECT_FALSE(SLComposeViewController::isAvailableForServiceType(""));
    browser = true;
    EXPECT_TRUE(SLComposeViewController::isAvailableForServiceType(""));
    preferences::openUrl("https://example.org");
    EXPECT_THAT(opened, ElementsAre("https://example.org"));
}

TEST_F(PresenterTest, KnowsThePhonesApplications) {
    auto* port = preferences::PreferencesPort::current();
    EXPECT_EQ(port->applications().at("com.apple.Music"), "Music");
    EXPECT_EQ(port->applicationIcon("com.apple.Music", 29)->pixelWidth(), 58);
    EXPECT_EQ(port->applicationIcon("com.example.none", 29), nullptr);
}

TEST_F(PresenterTest, AnyOtherControllersViewCoversTheScreen) {
    const auto page = std::make_shared<UIViewController>();
    int shown = 0;
    preferences::presentFromKeyWindow(page, false, [&] { ++shown; });
    loop.advance(0.1);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(page->view()->frame(), UIScreen::mainScreen().bounds());
    preferences::dismiss(*page, false, [&] { ++shown; });
    preferences::dismiss(*page, false, [&] { ++shown; });
    loop.advance(0.1);
    EXPECT_EQ(shown, 3);
    EXPECT_EQ(page->view()->superview(), nullptr);
}

} // namespace
