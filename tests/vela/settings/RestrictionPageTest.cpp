#include "tests/vela/settings/SettingsTest.h"

#include "tests/support/TestHost.h"

using foundation::PropertyList;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct RestrictionPage : tests::SettingsTest {
    RestrictionPage() {
        preferences(usualPreferences());
        install("com.apple.WebViewService", tests::greyImage(200));
        install("org.example.notes", tests::greyImage(10));
        install("org.example.camera", tests::greyImage(20));
        install("org.example.daemon", tests::greyImage(200)); // the same picture, made another time
    }
    void install(const std::string& identifier, std::shared_ptr<const toolkit::Image> icon) {
        port.installed[identifier] = "Name of " + identifier;
        port.icons[identifier] = std::move(icon);
    }
    std::vector<std::string> rows() {
        std::vector<std::string> names;
        for (const auto& row : top()->specifiers())
            names.push_back(row->name());
        return names;
    }
};

TEST_F(RestrictionPage, ListsApplicationsThatHaveAnIconByTheirIdentifiers) {
    const auto restriction = shown("restrictionController", "Disable for apps");
    EXPECT_THAT(rows(), IsEmpty());
    wait(0);
    EXPECT_TRUE(tests::matchesReference("restriction", tests::dumpOf(*restriction)));
}

TEST_F(RestrictionPage, IsThereBeforeItsList) {
    std::vector<std::string> whenShown{"not shown"};
    navigation->setChangeHandler([&](auto, bool) { whenShown = rows(); });
    const auto restriction = shown("restrictionController", "Disable for apps");
    EXPECT_THAT(whenShown, IsEmpty());
    EXPECT_EQ(restriction->title(), "Restriction");
    EXPECT_THAT(transcript.take(), IsEmpty()); // no icon was asked for
}

TEST_F(RestrictionPage, AddsItsRowsAnimated) {
    struct : preferences::PSListObserver {
        std::vector<std::pair<std::size_t, bool>> added;
        void specifiersReloaded() override {}
        void specifierAdded(std::size_t index, bool animated) override {
            added.emplace_back(index, animated);
        }
        void specifierRemoved(std::size_t, bool) override {}
        void specifierChanged(const std::shared_ptr<preferences::PSSpecifier>&) override {}
    } observer;
    const auto restriction = shown("restrictionController");
    restriction->setObserver(&observer);
    wait(0);
    restriction->setObserver(nullptr);
    EXPECT_THAT(observer.added, ElementsAre(std::pair(0, true), std::pair(1, true)));
}

TEST_F(RestrictionPage, AsksForIconsOf29Points) {
    shown("restrictionController");
    wait(0);
    EXPECT_THAT(transcript.take(),
                ElementsAre("icon com.apple.WebViewService 29", "icon com.apple.WebViewService 29",
                            "icon org.example.camera 29", "icon org.example.daemon 29",
                            "icon org.example.notes 29"));
}

TEST_F(RestrictionPage, AnApplicationWhoseIconCannotBeMadeIsListedWithoutOne) {
    install("org.example.strange", nullptr);
    const auto restriction = shown("restrictionController");
    wait(0);
    const auto row = restriction->specifierForID("org.example.strange");
    ASSERT_TRUE(row);
    EXPECT_FALSE(row->iconImage());
}

TEST_F(RestrictionPage, WithoutAGenericIconEveryApplicationIsListed) {
    port.icons.erase("com.apple.WebViewService");
    shown("restrictionController");
    wait(0);
    EXPECT_EQ(rows().size(), port.installed.size());
}

TEST_F(RestrictionPage, SwitchesStoreTheIdentifierBesideAllOtherKeys) {
    const auto restriction = shown("restrictionController");
    wait(0);
    store(*restriction, "org.example.notes", true);
    EXPECT_EQ(stored("org.example.notes"), PropertyList(true));
    EXPECT_EQ(stored("left_size_portrait"), PropertyList(0.8));
    EXPECT_EQ(restriction->specifierForID("org.example.notes")->performGetter(), PropertyList(true));
    store(*restriction, "org.example.notes", false);
    EXPECT_EQ(stored("org.example.notes"), PropertyList(false)); // never taken out
}

TEST_F(RestrictionPage, ComingBackDoesNotDoubleTheRows) {
    shown("configurationVelaController");
    tapRow("Disable for apps");
    wait(0);
    EXPECT_EQ(rows().size(), 2u);
    shown("guideController");
    navigation->popViewControllerAnimated(true);
    wait(0);
    EXPECT_EQ(rows().size(), 2u);
    navigation->popViewControllerAnimated(true);
    tapRow("Disable for apps");
    wait(0);
    EXPECT_EQ(rows().size(), 2u);
}

TEST_F(RestrictionPage, ComingBackBeforeTheListIsMadeDoesNotDoubleTheRows) {
    shown("restrictionController");
    shown("guideController");
    navigation->popViewControllerAnimated(true);
    wait(0);
    EXPECT_EQ(rows().size(), 2u);
}

TEST_F(RestrictionPage, LeavingBeforeTheListIsMadeMakesNone) {
    shown("configurationVelaController");
    tapRow("Disable for apps");
    navigation->popViewControllerAnimated(true);
    wait(1);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(RestrictionPage, HundredsOfApplicationsAreListed) {
    for (int i = 0; i < 500; ++i)
        install("org.example.app" + std::to_string(i), tests::greyImage(static_cast<std::uint8_t>(i % 150)));
    shown("restrictionController");
    wait(0);
    EXPECT_EQ(rows().size(), 502u);
}

} // namespace
