#include "tests/vela/board/BoardFixture.h"

#include "platform/foundation/Log.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/plugins/CallRecord.h"
#include "platform/plugins/DisabledPlugins.h"
#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "vela/board/disabledNotice.h"
#include "vela/board/velaAppHostingView.h"
#include "vela/board/velaIconView.h"
#include "vela/panels/leftWindowGrabber.h"

using namespace toolkit;

namespace {

/// A board of 300 × 500 points in a window, with tiles of plug-ins called "a", "b", …; those in `recorders`
/// are real and record their calls, the others cannot be loaded.
struct Tile : tests::BoardFixture {
    ~Tile() override {
        board.reset();
        plugins::clearRecordedCalls();
    }
    void makeBoard(const std::string& names, const std::string& recorders = "") {
        plugins::clearRecordedCalls();
        for (const char name : names) {
            const bool real = recorders.find(name) != std::string::npos;
            if (real)
                installBundle("Recorder", std::string(1, name));
            else
                install(std::string(1, name), {{"CFBundleIdentifier", std::string(1, name)},
                                               {"display_name", "Plug-in " + std::string(1, name)}});
        }
        board = std::make_shared<vela::velaBoard>(Rect{0, 0, 300, 500});
        host->window->addSubview(board);
        loop.turn();
    }
    /// A copy of a test bundle under an identifier of its own.
    void installBundle(const std::string& bundle, const std::string& identifier) {
        const std::filesystem::path from =
            std::filesystem::path(VELA_BINARY_DIR) / "test-plug-ins" / (bundle + ".bundle");
        std::filesystem::create_directories(plugInFolder());
        std::filesystem::copy(from, plugInFolder() / identifier, std::filesystem::copy_options::recursive);
        const std::string path = std::string(vela::paths::plugIns) + "/" + identifier + "/Info.plist";
        auto info = foundation::FileManager::shared().readDictionary(path);
        ASSERT_TRUE(info);
        (*info)["CFBundleIdentifier"] = identifier;
        ASSERT_TRUE(foundation::FileManager::shared().writeDictionaryAtomically(path, *info));
    }
    vela::velaApplicationView& tile(std::size_t index) { return *board->apps().at(index); }
    /// Every call of an optional method so far, as "identifier method".
    std::vector<std::string> calls() {
        std::vector<std::string> result;
        for (const auto& call : plugins::recordedCalls())
            result.push_back(call.identifier + " " + call.method);
        return result;
    }
    void open(std::size_t index) {
        tile(index).appClicked();
        wait(2);
        ASSERT_TRUE(tile(index).isOpen());
    }
    /// Drags the title of the open tile down so that the drag's progress is `progress`, and rests there.
    void dragTitle(std::size_t index, double progress) {
        const auto& title = *tile(index).hostingView()->label();
        const Point middle = title.convertPointTo(title.bounds().center(), nullptr);
        const double way = tile(index).originalFrame().y - board->contentOffset().y;
        touchDown(middle.x, middle.y);
        touchMove(middle.x, middle.y + 20, 1.0 / 60); // the drag is measured from here
        touchMove(middle.x, middle.y + 20 + way * progress, 0.2);
    }
    /// Veil, icon and hosted plug-in as they lie in a tile of this size.
    void expectContentsFor(std::size_t index, Size size) {
        const auto& one = tile(index);
        EXPECT_EQ(one.grayView()->frame(), Rect(0, 0, size.width, size.height));
        EXPECT_EQ(one.icon()->frame(), vela::velaIconView::frameInTile(size));
        if (const auto& hosting = one.hostingView()) {
            const double scale = size.width / 300;
            EXPECT_EQ(hosting->transform(),
                      scale == 1 ? AffineTransform() : AffineTransform::scale(scale, scale));
            EXPECT_EQ(hosting->center(), (Point{size.width / 2, size.height / 2}));
        }
    }
    std::shared_ptr<vela::velaBoard> board;
};

TEST_F(Tile, IsClosedAtFirst) {
    makeBoard("ab");
    EXPECT_FALSE(tile(0).isOpen());
    EXPECT_FALSE(tile(0).isAnimating());
    EXPECT_FALSE(tile(0).waiting());
    EXPECT_EQ(tile(0).layer()->cornerRadius(), 10);
    EXPECT_TRUE(tile(0).clipsToBounds());
    EXPECT_EQ(tile(0).grayView()->alpha(), 1);
    EXPECT_EQ(tile(0).grayView()->backgroundColor(), Color::white(190.0 / 255.0, 0.5));
    EXPECT_EQ(tile(0).grayView()->frame(), tile(0).bounds());
    EXPECT_EQ(tile(0).hostingView(), nullptr);
}

TEST_F(Tile, OpensAtOnceWhenItsTopIsInSight) {
    makeBoard("abc", "a");
    tap(150, 100);
    EXPECT_FALSE(tile(0).waiting());
    EXPECT_EQ(board->indexOfOpenedApp(), 0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(tile(i).isAnimating());
        EXPECT_FALSE(tile(i).isOpen());
        EXPECT_EQ(tile(i).frame(), Rect(0, i * 500, 300, 500));
        EXPECT_EQ(tile(i).layer()->cornerRadius(), 0);
        EXPECT_EQ(tile(i).grayView()->alpha(), 0);
        EXPECT_EQ(tile(i).icon()->alpha(), 0);
    }
    for (int i = 0; i < 3; ++i)
        expectContentsFor(i, {300, 500});
    EXPECT_EQ(tile(0).originalFrame(), Rect(82.5, 50, 135, 225));
    EXPECT_EQ(tile(0).hostingView()->alpha(), 1);
    wait(0.79);
    EXPECT_FALSE(tile(0).isOpen());
    wait(0.02);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(tile(i).isOpen());
        EXPECT_FALSE(tile(i).isAnimating());
        EXPECT_EQ(tile(i).trasformedFrame(), Rect(0, i * 500, 300, 500));
    }
    EXPECT_FALSE(board->isScrollEnabled());
}

TEST_F(Tile, ScrollsIntoSightFirstWhenItsTopIsAtOrAboveTheVisibleTop) {
    makeBoard("abc");
    board->setContentOffset({0, 325}); // exactly at the top of the second tile
    tile(1).appClicked();
    EXPECT_TRUE(tile(1).waiting());
    EXPECT_EQ(tile(1).hostingView()->alpha(), 0);
    EXPECT_EQ(board->contentOffset(), (Point{0, 305}));
    EXPECT_EQ(tile(1).frame(), Rect(82.5, 325, 135, 225));
    wait(0.29);
    EXPECT_TRUE(tile(1).waiting());
    wait(0.02);
    EXPECT_FALSE(tile(1).waiting());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(tile(i).frame(), Rect(0, (i - 1) * 500.0 + 305, 300, 500));
    wait(1);
    EXPECT_TRUE(tile(1).isOpen());
}

TEST_F(Tile, OneBelowTheVisibleAreaOpensWithoutScrolling) {
    makeBoard("abc");
    tile(2).appClicked();
    EXPECT_FALSE(tile(2).waiting());
    EXPECT_EQ(board->contentOffset(), Point());
    EXPECT_EQ(tile(2).frame(), Rect(0, 0, 300, 500));
    EXPECT_EQ(tile(0).frame(), Rect(0, -1000, 300, 500));
    EXPECT_EQ(tile(2).clickedIndex(), 2);
}

TEST_F(Tile, ATapOnAnOpenOneDoesNothing) {
    makeBoard("ab", "a");
    open(0);
    const auto before = calls();
    tile(0).appClicked();
    EXPECT_EQ(calls(), before);
    EXPECT_FALSE(tile(0).isAnimating());
}

TEST_F(Tile, TheOpenedPlugInHearsItOncePerTile) {
    makeBoard("abcd", "c");
    open(2);
    EXPECT_EQ(calls(),
              (std::vector<std::string>{"c appWillBecomeFirstResponder", "c appBecomeActive",
                                        "c appBecomeActive", "c appBecomeActive", "c appBecomeActive"}));
}

TEST_F(Tile, OpeningItAgainKeepsThePlugIn) {
    makeBoard("ab", "a");
    open(0);
    const auto hosting = tile(0).hostingView();
    const auto view = hosting->bundleView();
    ASSERT_TRUE(view);
    for (const auto& one : board->apps())
        one->closeOpenedApp();
    wait(1);
    EXPECT_FALSE(tile(0).isOpen());
    EXPECT_TRUE(board->isScrollEnabled());
    open(0);
    EXPECT_EQ(tile(0).hostingView(), hosting);
    EXPECT_EQ(hosting->bundleView(), view);
}

TEST_F(Tile, TheCornersRoundOffLinearly) {
    makeBoard("a");
    tile(0).appClicked();
    wait(0.4);
    EXPECT_NEAR(std::get<double>(tile(0).layer()->presented(LayerProperty::CornerRadius)), 5, 1e-9);
    EXPECT_EQ(tile(0).layer()->cornerRadius(), 0);
}

TEST_F(Tile, ClosingTheCornersRoundOffFromWhereTheDragHasLeftThem) {
    makeBoard("ab", "a");
    open(0);
    dragTitle(0, 0.6);
    EXPECT_NEAR(tile(0).layer()->cornerRadius(), 6, 1e-5);
    touchUp();
    wait(0.4);
    EXPECT_NEAR(std::get<double>(tile(0).layer()->presented(LayerProperty::CornerRadius)), 8, 1e-5);
}

TEST_F(Tile, ReopeningTheCornersAlwaysStartFullyRound) {
    makeBoard("ab", "a");
    open(0);
    dragTitle(0, 0.2);
    touchUp();
    wait(0.4);
    EXPECT_NEAR(std::get<double>(tile(0).layer()->presented(LayerProperty::CornerRadius)), 5, 1e-9);
}

TEST_F(Tile, AnInterruptedOpeningLeavesTheFlagsAsTheyWere) {
    makeBoard("ab");
    tile(0).appClicked();
    wait(0.3);
    tile(0).setFrame({0, 0, 10, 10});
    wait(2);
    EXPECT_TRUE(tile(0).isAnimating());
    EXPECT_FALSE(tile(0).isOpen());
    EXPECT_TRUE(tile(1).isOpen());
}

TEST_F(Tile, WhileAnAnimationRunsATileDoesNotLayItselfOut) {
    makeBoard("ab");
    tile(0).setIsAnimating(true);
    tile(0).setFrame({0, 0, 200, 200});
    loop.turn();
    EXPECT_EQ(tile(0).grayView()->frame(), Rect(0, 0, 135, 225));
    tile(0).setIsAnimating(false);
    tile(0).setNeedsLayout();
    loop.turn();
    EXPECT_EQ(tile(0).grayView()->frame(), Rect(0, 0, 200, 200));
    EXPECT_EQ(tile(0).icon()->frame(), Rect(65, 60, 70, 80));
}

TEST_F(Tile, TheHostedPlugInIsLaidOutAtTheBoardsSizeAndShownSmall) {
    makeBoard("ab", "a");
    open(0);
    for (const auto& one : board->apps())
        one->closeOpenedApp();
    wait(1);
    loop.turn();
    const auto& hosting = *tile(0).hostingView();
    EXPECT_EQ(hosting.bounds().size(), (Size{300, 500}));
    EXPECT_EQ(hosting.transform(), AffineTransform::scale(0.45, 0.45));
    EXPECT_EQ(hosting.center(), (Point{67.5, 112.5}));
    EXPECT_EQ(hosting.alpha(), 0);
    EXPECT_EQ(tile(0).subviews().front(), tile(0).hostingView());
}

TEST_F(Tile, ADragOnTheTitleMovesEveryTile) {
    makeBoard("abc", "a");
    open(0);
    dragTitle(0, 0.25);
    const auto p = 0.25f;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(tile(i).grayView()->alpha(), static_cast<double>(p));
        EXPECT_EQ(tile(i).icon()->alpha(), static_cast<double>(p));
        EXPECT_EQ(tile(i).layer()->cornerRadius(), 2.5);
        const Rect from = tile(i).trasformedFrame(), to = tile(i).originalFrame();
        EXPECT_NEAR(tile(i).frame().y, 0.25 * to.y + 0.75 * from.y, 1e-9);
        EXPECT_NEAR(tile(i).frame().width, 0.25 * to.width + 0.75 * from.width, 1e-9);
    }
    EXPECT_EQ(tile(0).hostingView()->alpha(), 0.75);
    EXPECT_EQ(calls().back(), "a appWillEnterBackground");
    touchUp();
}

TEST_F(Tile, ADragReleasedAtExactlyHalfReopens) {
    makeBoard("abc", "a");
    open(0);
    dragTitle(0, 0.5);
    plugins::clearRecordedCalls();
    touchUp();
    EXPECT_EQ(calls(),
              (std::vector<std::string>{"a appBecomeActive", "a appBecomeActive", "a appBecomeActive"}));
    EXPECT_EQ(tile(0).frame(), tile(0).trasformedFrame());
    for (int i = 0; i < 3; ++i) {
        expectContentsFor(i, {300, 500});
        EXPECT_EQ(tile(i).grayView()->alpha(), 0);
        EXPECT_EQ(tile(i).icon()->alpha(), 0);
    }
    wait(1);
    EXPECT_TRUE(tile(0).isOpen());
    EXPECT_EQ(tile(0).hostingView()->alpha(), 1);
    EXPECT_FALSE(board->isScrollEnabled());
}

TEST_F(Tile, EachDragStartsAtTheOpenPosition) {
    makeBoard("ab", "a");
    open(0);
    dragTitle(0, 0.5);
    touchUp();
    wait(1);
    touchDown(150, 40);
    touchMove(150, 70, 1.0 / 60); // has only begun
    EXPECT_EQ(tile(0).frame(), tile(0).trasformedFrame());
    EXPECT_EQ(tile(0).grayView()->alpha(), 0);
    touchUp();
}

TEST_F(Tile, OnlyThePlugInThatWasDraggedComesBack) {
    makeBoard("ab", "ab");
    open(0);
    for (const auto& one : board->apps())
        one->closeOpenedApp();
    wait(1);
    open(1);
    dragTitle(1, 0.25);
    EXPECT_EQ(tile(1).hostingView()->alpha(), 0.75);
    EXPECT_EQ(tile(0).hostingView()->alpha(), 0);
    touchUp();
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(tile(i).isAnimating());
    EXPECT_EQ(tile(1).hostingView()->alpha(), 1);
    EXPECT_EQ(tile(0).hostingView()->alpha(), 0);
}

TEST_F(Tile, ADragReleasedBeyondHalfCloses) {
    makeBoard("abc", "a");
    open(0);
    dragTitle(0, 0.51);
    plugins::clearRecordedCalls();
    touchUp();
    EXPECT_EQ(calls(), (std::vector<std::string>{"a appDidEnterBackground", "a appDidEnterBackground",
                                                 "a appDidEnterBackground"}));
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(tile(i).isAnimating());
        expectContentsFor(i, {135, 225});
        EXPECT_EQ(tile(i).icon()->alpha(), 1);
    }
    wait(1);
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(tile(i).isOpen());
        EXPECT_EQ(tile(i).frame(), tile(i).originalFrame());
        EXPECT_EQ(tile(i).layer()->cornerRadius(), 10);
        EXPECT_EQ(tile(i).grayView()->alpha(), 1);
    }
    EXPECT_TRUE(board->isScrollEnabled());
    EXPECT_TRUE(tile(0).hostingView()->isUserInteractionEnabled());
}

TEST_F(Tile, ADragUpwardsGoesNowhere) {
    makeBoard("ab", "a");
    open(0);
    dragTitle(0, -0.5);
    EXPECT_EQ(tile(0).frame(), tile(0).trasformedFrame());
    EXPECT_EQ(tile(0).grayView()->alpha(), 0);
    touchUp();
    wait(1);
    EXPECT_TRUE(tile(0).isOpen());
}

TEST_F(Tile, ADragBeyondTheClosedPositionStaysThere) {
    makeBoard("ab", "a");
    open(0);
    dragTitle(0, 3);
    EXPECT_EQ(tile(0).frame(), tile(0).originalFrame());
    EXPECT_EQ(tile(0).hostingView()->alpha(), 0);
    touchUp();
}

TEST_F(Tile, ATapOnTheTitleIsPassedOn) {
    makeBoard("ab", "a");
    open(0);
    const auto& title = *tile(0).hostingView()->label();
    const Point middle = title.convertPointTo(title.bounds().center(), nullptr);
    tap(middle.x, middle.y);
    EXPECT_EQ(calls().back(), "a tapTitleLabel");
}

// The hosting view.

TEST_F(Tile, APlugInWithoutAnyOptionalMethodWorks) {
    makeBoard("b");
    installBundle("Silent", "silent");
    vela::velaAppHostingView hosting("silent");
    ASSERT_TRUE(hosting.bundleView());
    plugins::clearRecordedCalls();
    hosting.appWillBecomeFirstResponder();
    hosting.appBecomeActive();
    hosting.appWillEnterBackground();
    hosting.appDidEnterBackground();
    hosting.tapTitleLabel();
    hosting.velaInvoked();
    hosting.velaDismissed();
    EXPECT_TRUE(calls().empty());
}

TEST_F(Tile, OneThatCannotBeLoadedOpensToItsTitle) {
    makeBoard("ab");
    foundation::clearLog();
    open(1);
    EXPECT_EQ(
        foundation::loggedLines(),
        std::vector<std::string>{"Couldn't load bundle in /Library/Application Support/Vela/Plugins/b/"});
    EXPECT_EQ(tile(1).hostingView()->bundleView(), nullptr);
    EXPECT_EQ(tile(1).hostingView()->label()->text(), "Plug-in b");
}

TEST_F(Tile, AnUnknownIdentifierIsLoggedAsNil) {
    makeBoard("a");
    foundation::clearLog();
    const vela::velaAppHostingView hosting("nobody");
    EXPECT_EQ(foundation::loggedLines(), std::vector<std::string>{"Couldn't load bundle in (null)"});
}

TEST_F(Tile, TheHostingViewStaysTouchableAndClear) {
    makeBoard("a");
    vela::velaAppHostingView hosting("nobody");
    hosting.setUserInteractionEnabled(false);
    EXPECT_TRUE(hosting.isUserInteractionEnabled());
    hosting.setBackgroundColor(Color::white(1));
    EXPECT_EQ(hosting.backgroundColor(), Color::clear());
    EXPECT_TRUE(hosting.layer()->backgroundColor()->isClear());
    auto& pan = *hosting.label()->gestureRecognizers().at(0);
    EXPECT_FALSE(hosting.gestureRecognizerShouldRecognizeSimultaneously(pan, pan));
}

TEST_F(Tile, ThePlugInsViewLiesUnderTheTitle) {
    makeBoard("a", "a");
    vela::velaAppHostingView hosting("a");
    hosting.label()->setText("Title");
    hosting.setFrame({0, 0, 300, 500});
    const double height = hosting.label()->frame().height;
    EXPECT_EQ(hosting.label()->frame(), Rect(0, 20, 300, height));
    EXPECT_GT(height, 38);
    EXPECT_EQ(hosting.bundleView()->frame(), Rect(0, 20 + height + 10, 300, 500 - (20 + height + 10)));
    EXPECT_EQ(hosting.label()->font().size, 38);
    EXPECT_TRUE(hosting.bundleView()->isUserInteractionEnabled());
    EXPECT_TRUE(hosting.bundleView()->backgroundColor()->isClear());
}

TEST_F(Tile, ThePanelsNotificationReachesEveryPlugInThatWasOpened) {
    makeBoard("abc", "ab");
    open(0);
    for (const auto& one : board->apps())
        one->closeOpenedApp();
    wait(1);
    open(1);
    plugins::clearRecordedCalls();
    auto& centre = foundation::NotificationCenter::defaultCenter();
    const char* name = vela::leftWindowGrabber::notificationName;
    centre.post(name, foundation::PropertyList::Dictionary{{"name", "invoked"}});
    EXPECT_EQ(calls(), (std::vector<std::string>{"a velaInvoked", "b velaInvoked"}));
    centre.post(name, foundation::PropertyList::Dictionary{{"name", "dismissed"}});
    EXPECT_EQ(calls().size(), 4u);
    centre.post(name, foundation::PropertyList::Dictionary{{"name", "other"}});
    centre.post(name, foundation::PropertyList("invoked"));
    centre.post(name);
    EXPECT_EQ(calls().size(), 4u);
}

TEST_F(Tile, ALetGoHostingViewHearsNothing) {
    makeBoard("a", "a");
    { const vela::velaAppHostingView hosting("a"); }
    plugins::clearRecordedCalls();
    foundation::NotificationCenter::defaultCenter().post(
        vela::leftWindowGrabber::notificationName, foundation::PropertyList::Dictionary{{"name", "invoked"}});
    EXPECT_TRUE(calls().empty());
}

TEST_F(Tile, NewerSystemsMeasureTheDragAlongXOnATurnedScreen) {
    makeBoard("a", "a");
    open(0);
    const auto& hosting = *tile(0).hostingView();
    auto& version = foundation::ProcessInfo::shared().systemVersion;
    for (const auto& [number, newer] : std::vector<std::pair<std::string, bool>>{{"9.3", false},
                                                                                 {"9.3.2", false},
                                                                                 {"9.3.3", true},
                                                                                 {"9.10", true},
                                                                                 {"10.0", true},
                                                                                 {"9.2.9", false}}) {
        version = number;
        screen(375, 667); // the board is 500 points high
        EXPECT_EQ(hosting.needsReverse(), newer) << number;
        screen(375, 500);
        EXPECT_FALSE(hosting.needsReverse());
    }
}

TEST_F(Tile, ADragMeasuredAlongXFollowsTheFingerSideways) {
    makeBoard("ab", "a");
    open(0);
    foundation::ProcessInfo::shared().systemVersion = "9.3.3"; // the board is not as high as the screen
    touchDown(100, 40);
    touchMove(120, 90, 1.0 / 60); // the drag is measured from here
    touchMove(120, 300, 0.1);
    EXPECT_EQ(tile(0).frame(), tile(0).trasformedFrame());
    touchMove(132.5, 300, 0.1); // a quarter of the way of 50 points
    EXPECT_EQ(tile(0).grayView()->alpha(), 0.25);
    touchUp();
}

TEST_F(Tile, OneThatWasTurnedOffSaysSoAndCanBeTurnedOnAgain) {
    installBundle("Recorder", "crasher");
    auto& files = foundation::FileManager::shared();
    files.createDirectories(plugins::stateDirectory);
    const std::string note = "crasher";
    files.writeAtomically(plugins::crashNotePath,
                          {reinterpret_cast<const std::uint8_t*>(note.data()), note.size()});
    ASSERT_EQ(plugins::takeNoteOfCrash(), "crasher");
    makeBoard("");
    open(0);
    const auto& hosting = *tile(0).hostingView();
    EXPECT_EQ(hosting.bundleView(), nullptr);
    vela::disabledNotice* notice = nullptr;
    for (const auto& view : hosting.subviews())
        if (auto* found = dynamic_cast<vela::disabledNotice*>(view.get()))
            notice = found;
    ASSERT_TRUE(notice);
    loop.turn();
    const Point middle = notice->button()->convertPointTo(notice->button()->bounds().center(), nullptr);
    tap(middle.x, middle.y);
    EXPECT_FALSE(plugins::isDisabled("crasher"));
    EXPECT_TRUE(hosting.bundleView());
    EXPECT_EQ(calls().back(), "crasher appBecomeActive");
}

} // namespace
