#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/PreferenceBundle.h"
#include "platform/preferences/SLComposeViewController.h"
#include "platform/toolkit/views/UIImageView.h"
#include "vela/settings/PageState.h"
#include "vela/settings/velaCell.h"
#include "vela/stores/Paths.h"

using foundation::PropertyList;
using preferences::SLComposeViewController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct RootPage : tests::SettingsTest {
    RootPage() { preferences({{"Enable", true}, {"tutorial", true}}); }

    /// Height of the header's bar of that number in the figure, once it has formed.
    double heightOfBar(std::size_t index) {
        wait(0.3);
        return header()->subviews().at(index)->frame().height;
    }
    std::shared_ptr<preferences::PSTableCell> header() {
        return top()->headerCellForGroup(top()->specifiers().front());
    }
};

TEST_F(RootPage, HasItsRows) {
    const auto root = shown("VelaSettingsController");
    EXPECT_TRUE(tests::matchesReference("root", tests::dumpOf(*root)));
}

TEST_F(RootPage, IsWhatTheBundleNames) {
    const auto bundle = preferences::PreferenceBundle::read("/Library/PreferenceBundles/VelaSettings.bundle");
    ASSERT_TRUE(bundle);
    const auto root = bundle->makeRootController();
    ASSERT_TRUE(root);
    EXPECT_EQ(root->isa().name(), "VelaSettingsController");
    EXPECT_EQ(root->title(), "Vela");
}

TEST_F(RootPage, EveryLinkLeadsToAPage) {
    shown("VelaSettingsController");
    for (const char* name : {"Configuration", "Guide", "Contacts"}) {
        tapRow(name);
        ASSERT_EQ(navigation->viewControllers().size(), 2u) << name;
        EXPECT_EQ(top()->title(), name);
        navigation->popViewControllerAnimated(true);
    }
}

TEST_F(RootPage, FillsItsNavigationItemOnce) {
    const auto root = shown("VelaSettingsController");
    auto& item = root->navigationItem();
    const auto titleView = item.titleView();
    const auto* picture = dynamic_cast<toolkit::UIImageView*>(titleView.get());
    ASSERT_TRUE(picture);
    EXPECT_TRUE(picture->image());
    ASSERT_TRUE(item.rightBarButtonItem());
    EXPECT_TRUE(item.rightBarButtonItem()->image());
    EXPECT_EQ(item.rightBarButtonItem()->style(), preferences::UIBarButtonItem::Style::Plain);
    root->viewWillAppear(true);
    EXPECT_EQ(item.titleView(), titleView);
}

TEST_F(RootPage, MissingPicturesLeaveTheBarEmpty) {
    std::filesystem::remove_all(root / "Library/PreferenceBundles");
    auto& item = shown("VelaSettingsController")->navigationItem();
    EXPECT_FALSE(dynamic_cast<toolkit::UIImageView&>(*item.titleView()).image());
    EXPECT_FALSE(item.rightBarButtonItem()->image());
    EXPECT_FALSE(top()->specifierForID("Enable")->iconImage());
}

TEST_F(RootPage, ShowsTheTutorialOnTheFirstVisitOnly) {
    preferences({{"Enable", true}});
    shown("VelaSettingsController");
    EXPECT_THAT(transcript.take(), ElementsAre("present tutorialController animated"));
    EXPECT_EQ(stored("tutorial"), PropertyList(true));
    EXPECT_EQ(stored("Enable"), PropertyList(true));
    tapRow("Guide");
    navigation->popViewControllerAnimated(true);
    shown("VelaSettingsController");
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(RootPage, TweetsThroughASheetThatGoesWhenItIsDone) {
    const auto root = shown("VelaSettingsController");
    root->navigationItem().rightBarButtonItem()->performAction();
    EXPECT_THAT(transcript.take(), ElementsAre("present SLComposeViewController animated"));
    const auto sheet = std::dynamic_pointer_cast<SLComposeViewController>(port.presented.back());
    EXPECT_EQ(sheet->initialText(), "I'm loving #Vela3 by @tarnfield5");
    EXPECT_EQ(sheet->serviceType(), SLComposeViewController::serviceTypeTwitter);
    sheet->complete(SLComposeViewController::Result::Done);
    EXPECT_THAT(transcript.take(), ElementsAre("dismiss SLComposeViewController animated"));
    EXPECT_THAT(port.presented, IsEmpty());
}

TEST_F(RootPage, EnableIsStored) {
    const auto root = shown("VelaSettingsController");
    store(*root, "Enable", false);
    EXPECT_EQ(stored("Enable"), PropertyList(false));
    EXPECT_EQ(stored("tutorial"), PropertyList(true));
    EXPECT_EQ(root->specifierForID("Enable")->performGetter(), PropertyList(false));
}

TEST_F(RootPage, TheHeaderFollowsTheSwitch) {
    const auto root = shown("VelaSettingsController");
    header();
    EXPECT_EQ(heightOfBar(9), 17);
    store(*root, "Enable", false);
    EXPECT_EQ(header()->subviews().at(9)->frame().height, 4);
    store(*root, "Enable", true);
    EXPECT_EQ(heightOfBar(9), 17);
}

TEST_F(RootPage, TheHeaderFollowsTheSwitchAndNotTheFile) {
    const auto root = shown("VelaSettingsController");
    header();
    // A file that cannot be written: what is seen of the new value was not read from it.
    std::filesystem::remove_all(this->root / "var/mobile/Library/Preferences");
    store(*root, "Enable", false);
    EXPECT_EQ(header()->subviews().at(9)->frame().height, 4);
    EXPECT_TRUE(stored("Enable").isNil());
}

TEST_F(RootPage, TheHeaderIsAnimatedWheneverThePageAppears) {
    shown("VelaSettingsController");
    header();
    preference("Enable", false); // as another process would
    tapRow("Guide");
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(header()->subviews().at(9)->frame().height, 4);
}

TEST_F(RootPage, LayoutRecordsThePagesSizeAndMakesItsCellsAnew) {
    shown("VelaSettingsController");
    const auto before = header();
    EXPECT_EQ(header(), before);
    navigation->setContentSize({667, 375});
    EXPECT_EQ(vela::pageState().width, 667);
    EXPECT_EQ(vela::pageState().height, 375);
    EXPECT_NE(header(), before);
    EXPECT_EQ(header()->frame(), toolkit::Rect(0, 0, 667, 200));
}

TEST_F(RootPage, LayoutKeepsItsRows) {
    const auto root = shown("VelaSettingsController");
    const auto rows = root->specifiers();
    navigation->setContentSize({667, 375});
    EXPECT_EQ(root->specifiers(), rows);
}

TEST_F(RootPage, AMissingOrBrokenFileShowsTheSwitchOff) {
    for (const char* content :
         {"", "<plist><dict><key>Enable", "bplist00\xff\xff", "<plist><array/></plist>"}) {
        write(vela::paths::preferences, content);
        const auto root = page("VelaSettingsController");
        EXPECT_TRUE(root->specifierForID("Enable")->performGetter().isNil()) << content;
    }
}

TEST_F(RootPage, AFileThatBreaksWhileThePageIsOpenIsReplacedByTheNextValue) {
    const auto root = shown("VelaSettingsController");
    write(vela::paths::preferences, "\x01garbage");
    EXPECT_FALSE(root->specifierForID("Enable")->performGetter().boolValue());
    store(*root, "Enable", true);
    EXPECT_EQ(stored("Enable"), PropertyList(true));
}

} // namespace
