#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "vela/stores/Paths.h"

using testing::ElementsAre;

namespace {

const std::string plugIns = vela::paths::plugIns;

struct GuidePage : tests::SettingsTest {
    /// The rows of plug-ins: titles, each with the footer of its group.
    std::vector<std::pair<std::string, std::string>> guides(preferences::PSListController& page) {
        std::vector<std::pair<std::string, std::string>> found;
        for (const auto& section : page.sections())
            for (const auto& row : section.rows)
                if (row->cellType() == preferences::PSCellType::StaticText)
                    found.emplace_back(row->name(), section.group->textForKey("footerText"));
        return found;
    }
};

TEST_F(GuidePage, HasItsRows) {
    write(plugIns + "/Clock/guide.txt", "Turn it.\nThen turn it back.\n");
    EXPECT_TRUE(tests::matchesReference("guide", tests::dumpOf(*shown("guideController", "Guide"))));
}

TEST_F(GuidePage, IntroducesTheProductInOneParagraph) {
    const std::string text = shown("guideController")->specifiers().front()->textForKey("footerText");
    EXPECT_GE(text.size(), 820u);
    EXPECT_LE(text.size(), 920u);
    EXPECT_EQ(text.find('\n'), std::string::npos);
}

TEST_F(GuidePage, ListsDirectoriesInTheirOwnOrderAndNoFiles) {
    for (const char* name : {"zebra", "ant", "Moth"})
        write(plugIns + "/" + name + "/guide.txt", std::string("About ") + name);
    write(plugIns + "/file", "no plug-in");
    std::vector<std::pair<std::string, std::string>> expected;
    const auto order = foundation::FileManager::shared().contentsOfDirectory(plugIns);
    for (const auto& name : *order)
        if (name != "file")
            expected.emplace_back(name, "About " + name);
    EXPECT_EQ(guides(*shown("guideController")), expected);
    EXPECT_EQ(expected.size(), 3u);
}

TEST_F(GuidePage, HiddenPlugInsAndDirectoriesThatAreNoPlugInsAreListedToo) {
    write(plugIns + "/Hidden/Info.plist", "<plist><dict><key>CFBundleIdentifier</key><string>x</string>"
                                          "<key>hidden</key><true/></dict></plist>");
    EXPECT_THAT(guides(*shown("guideController")),
                ElementsAre(std::pair("Hidden", "No guide for that plugin.")));
}

TEST_F(GuidePage, WhatCannotBeReadIsNoGuide) {
    write(plugIns + "/empty/guide.txt", "");
    write(plugIns + "/latin/guide.txt", "Stra\xdf"
                                        "e");
    write(plugIns + "/utf16/guide.txt", std::string("\xff\xfeH\0i\0", 6));
    write(plugIns + "/zeros/guide.txt", std::string("a\0b", 3));
    write(plugIns + "/long/guide.txt", std::string(10 * 1024 * 1024, 'x'));
    std::filesystem::create_directories(root / plugIns.substr(1) / "folder" / "guide.txt");
    const auto found = guides(*shown("guideController"));
    EXPECT_EQ(found.size(), 6u);
    for (const auto& [name, footer] : found)
        EXPECT_EQ(footer, "No guide for that plugin.") << name;
}

TEST_F(GuidePage, KeepsAnyTextAsItIs) {
    const std::string text = "  <b>&amp;</b>\r\n\n\xc3\xa9\xf0\x9f\x8e\xb5\n";
    write(plugIns + "/odd\nname/guide.txt", text);
    EXPECT_THAT(guides(*shown("guideController")), ElementsAre(std::pair(std::string("odd\nname"), text)));
}

TEST_F(GuidePage, AMissingPlugInFolderLeavesIntroductionAndTutorial) {
    std::filesystem::remove_all(root / plugIns.substr(1));
    const auto page = shown("guideController");
    ASSERT_EQ(page->specifiers().size(), 3u);
    EXPECT_EQ(page->specifiers().back()->name(), "Watch tutorial");
}

TEST_F(GuidePage, IsMadeOnce) {
    shown("configurationVelaController");
    const auto page = shown("guideController");
    const auto rows = page->specifiers();
    write(plugIns + "/New/guide.txt", "New.");
    page->reloadSpecifiers();
    EXPECT_EQ(page->specifiers(), rows);
    shown("configurationVelaController");
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(page->specifiers(), rows);
    EXPECT_THAT(guides(*shown("guideController")), ElementsAre(std::pair("New", "New.")));
}

TEST_F(GuidePage, ShowsTheTutorialWheneverItIsAsked) {
    shown("guideController");
    tapRow("Watch tutorial");
    tapRow("Watch tutorial");
    EXPECT_THAT(transcript.take(),
                ElementsAre("present tutorialController animated", "present tutorialController animated"));
}

} // namespace
