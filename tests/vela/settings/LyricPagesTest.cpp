#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/PSEditableListController.h"
#include "platform/toolkit/views/UITextView.h"
#include "vela/settings/PageState.h"
#include "vela/stores/VelaSettingsManager.h"

using foundation::PropertyList;
using preferences::PSEditableListController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* lyricFile = "/var/mobile/Documents/Vela/fetchedLyrics.plist";

struct LyricPages : tests::SettingsTest {
    void lyrics(PropertyList::Dictionary values) {
        ASSERT_TRUE(foundation::FileManager::shared().writeDictionaryAtomically(lyricFile, values));
    }
    PropertyList::Dictionary kept() {
        return foundation::FileManager::shared().readDictionary(lyricFile).value_or(
            PropertyList::Dictionary());
    }
    std::shared_ptr<PSEditableListController> list() {
        return shown<PSEditableListController>("lyricsController", "Manage lyrics");
    }
    std::shared_ptr<preferences::PSTableCell> editor() {
        return top()->cellForSpecifier(top()->specifiers().front());
    }
    std::shared_ptr<toolkit::UITextView> textView() {
        return std::dynamic_pointer_cast<toolkit::UITextView>(editor()->subviews().front());
    }
    void press(const char* title) {
        const auto button = top()->navigationItem().rightBarButtonItem();
        ASSERT_TRUE(button);
        ASSERT_EQ(button->title(), title);
        button->performAction();
    }
};

TEST_F(LyricPages, ListTheKeys) {
    lyrics({{"Night_Song_Mo", "la"}, {"_", "No lyric"}, {"Alone_", ""}});
    EXPECT_TRUE(tests::matchesReference("lyrics", tests::dumpOf(*list())));
}

TEST_F(LyricPages, AMissingOrBrokenFileListsNothing) {
    EXPECT_THAT(list()->specifiers(), IsEmpty());
    write(lyricFile, "bplist00 and no more");
    EXPECT_THAT(list()->specifiers(), IsEmpty());
}

TEST_F(LyricPages, DeletingARowRemovesExactlyItsKey) {
    lyrics({{"Song_Band", "la"}, {"Song_Band 2", "lala"}, {"Song", "x"}});
    const auto page = list();
    page->performDeletionActionForSpecifier(page->specifierForID("Song_Band"));
    EXPECT_EQ(kept(), (PropertyList::Dictionary{{"Song_Band 2", "lala"}, {"Song", "x"}}));
    EXPECT_EQ(page->specifiers().size(), 2u);
    EXPECT_FALSE(page->specifierForID("Song_Band"));
}

TEST_F(LyricPages, DeletingWhatIsGoneAlreadyKeepsTheRest) {
    lyrics({{"a_b", "1"}, {"c_d", "2"}});
    const auto page = list();
    lyrics({{"c_d", "2"}});
    page->performDeletionActionForSpecifier(page->specifierForID("a_b"));
    EXPECT_EQ(kept(), (PropertyList::Dictionary{{"c_d", "2"}}));
}

TEST_F(LyricPages, TheEditorHasItsRow) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    EXPECT_TRUE(tests::matchesReference("lyric-editor", tests::dumpOf(*top())));
    EXPECT_EQ(top()->title(), "Song_Band");
}

TEST_F(LyricPages, TheEditorShowsTheLyric) {
    lyrics({{"Song_Band", "one\ntwo"}});
    list();
    tapRow("Song_Band");
    EXPECT_EQ(textView()->text(), "one\ntwo");
    EXPECT_EQ(textView()->font(), toolkit::Font::system(16));
    EXPECT_TRUE(textView()->backgroundColor()->isClear());
    EXPECT_TRUE(textView()->isEditable());
}

TEST_F(LyricPages, TheEditorIsSixtyFourPointsLowerThanThePage) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    EXPECT_EQ(editor()->preferredHeightForWidth(100), 667 - 64);
    EXPECT_EQ(textView()->frame(), toolkit::Rect(0, 0, 375, 667 - 64));
    navigation->setContentSize({667, 375});
    EXPECT_EQ(editor()->preferredHeightForWidth(100), 375 - 64);
    EXPECT_EQ(textView()->frame(), toolkit::Rect(0, 0, 667, 375 - 64));
}

TEST_F(LyricPages, WhatIsWrittenSurvivesALayout) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    textView()->insertText("la");
    navigation->setContentSize({667, 375});
    EXPECT_EQ(textView()->text(), "lala");
}

TEST_F(LyricPages, SavingLeavesThePageAndThenStores) {
    lyrics({{"Song_Band", "la"}, {"Other_", "x"}});
    list();
    tapRow("Song_Band");
    textView()->insertText("\nla");
    EXPECT_EQ(vela::pageState().text, "la\nla");
    PropertyList whenLeft;
    navigation->setChangeHandler([&](auto, bool animated) {
        EXPECT_TRUE(animated);
        whenLeft = kept()["Song_Band"];
    });
    press("Save");
    EXPECT_EQ(whenLeft, PropertyList("la"));
    EXPECT_EQ(kept(), (PropertyList::Dictionary{{"Song_Band", "la\nla"}, {"Other_", "x"}}));
    EXPECT_EQ(top()->isa().name(), "lyricsController");
}

TEST_F(LyricPages, TheSaveButtonIsDone) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    EXPECT_EQ(top()->navigationItem().rightBarButtonItem()->style(),
              preferences::UIBarButtonItem::Style::Done);
}

TEST_F(LyricPages, UnderATitleViewThereIsNoSaveButton) {
    const auto editing = page("lyrciEditController", "Song_Band");
    editing->navigationItem().setTitleView(std::make_shared<toolkit::UIView>());
    navigation->pushViewController(editing, true);
    EXPECT_EQ(editing->navigationItem().rightBarButtonItem(), nullptr);
}

TEST_F(LyricPages, AnEmptiedLyricIsStoredEmpty) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    textView()->deleteBackward();
    textView()->deleteBackward();
    press("Save");
    EXPECT_EQ(kept(), (PropertyList::Dictionary{{"Song_Band", ""}}));
}

TEST_F(LyricPages, LeavingWithoutSavingStoresNothing) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    textView()->insertText("!");
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(kept(), (PropertyList::Dictionary{{"Song_Band", "la"}}));
    tapRow("Song_Band");
    EXPECT_EQ(textView()->text(), "la");
}

TEST_F(LyricPages, AnEditorWhosePageHasGoneKeepsNothing) {
    lyrics({{"Song_Band", "la"}});
    list();
    tapRow("Song_Band");
    const auto abandoned = textView();
    navigation->popViewControllerAnimated(true);
    vela::pageState().text = "of another page";
    abandoned->insertText("!");
    EXPECT_EQ(vela::pageState().text, "of another page");
}

TEST_F(LyricPages, AMissingLyricIsAnEmptyEditor) {
    lyrics({{"Song_Band", "la"}});
    list();
    lyrics({});
    tapRow("Song_Band");
    EXPECT_EQ(textView()->text(), "");
}

TEST_F(LyricPages, TheListIsReadAnewWhenItIsShownAgain) {
    lyrics({{"a_", "1"}});
    list();
    tapRow("a_");
    lyrics({{"a_", "1"}, {"b_", "2"}}); // the home screen has found another
    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(top()->specifiers().size(), 2u);
}

TEST_F(LyricPages, KeysWithLineBreaksAndMarkupAreKeysLikeOthers) {
    const std::string keys[] = {"a\nb_c", "<b>bold</b>_&amp;", "_",
                                "\"_'",   "../../etc_passwd",  "\xf0\x9f\x8e\xb5_%s%n"};
    PropertyList::Dictionary all;
    for (const auto& key : keys)
        all[key] = "text of " + key;
    lyrics(all);
    for (const auto& key : keys) {
        const auto page = list();
        tapRow(key);
        EXPECT_EQ(textView()->text(), "text of " + key);
        textView()->insertText("!");
        press("Save");
        EXPECT_EQ(kept()[key], PropertyList("text of " + key + "!"));
        page->performDeletionActionForSpecifier(top()->specifierForID(key));
        EXPECT_FALSE(kept().contains(key));
    }
    EXPECT_THAT(kept(), IsEmpty());
}

TEST_F(LyricPages, ValuesThatAreNoTextAreEmptyLyrics) {
    lyrics({{"a_", 3}, {"b_", PropertyList::Array{"x"}}});
    list();
    tapRow("a_");
    EXPECT_EQ(textView()->text(), "");
}

TEST_F(LyricPages, FiveThousandLyricsAreListedWithoutReadingOne) {
    PropertyList::Dictionary all;
    for (int i = 0; i < 5000; ++i)
        all["Song " + std::to_string(i) + "_Band"] = std::string(1000, 'x');
    lyrics(all);
    const auto page = list();
    EXPECT_EQ(page->specifiers().size(), 5000u);
    EXPECT_EQ(page->sections().size(), 1u);
    EXPECT_FALSE(page->cellForSpecifier(page->specifiers().front())); // rows draw nothing themselves
}

} // namespace
