#include "tests/preferences/PreferencesTest.h"

#include "platform/runtime/Message.h"

using foundation::PropertyList;
using preferences::PSCellType;
using preferences::PSSpecifier;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Specifier : tests::PreferencesTest {};

TEST_F(Specifier, ReadsAndStoresThroughItsTarget) {
    const auto target = page("p");
    const auto row = target->row("Volume", PSCellType::Slider);
    EXPECT_TRUE(row->performGetter().isNil());
    row->performSetterWithValue(0.5);
    EXPECT_EQ(row->performGetter(), PropertyList(0.5));
    EXPECT_THAT(told(), ElementsAre("store Volume 0.5"));
    EXPECT_EQ(row->identifier(), "Volume");
}

TEST_F(Specifier, WithoutTargetOrSelectorsDoesNothing) {
    auto target = page("p");
    const auto orphan = target->row("a", PSCellType::Switch);
    orphan->setButtonAction("tapped");
    orphan->setDeletionAction("removed:");
    target.reset();
    orphan->performSetterWithValue(true);
    orphan->performButtonAction();
    orphan->performDeletionAction();
    EXPECT_TRUE(orphan->performGetter().isNil());
    const auto bare = std::make_shared<PSSpecifier>("b", PSCellType::StaticText);
    bare->performSetterWithValue(true);
    bare->performButtonAction();
    bare->performDeletionAction();
    EXPECT_TRUE(bare->performGetter().isNil());
    EXPECT_FALSE(bare->iconImage());
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(Specifier, AMessageThatTheTargetDoesNotKnowIsRefused) {
    const auto target = page("p");
    const auto row = target->row("a", PSCellType::Link);
    row->setButtonAction("noSuchAction");
    EXPECT_THROW(row->performButtonAction(), runtime::UnrecognizedSelector);
}

TEST_F(Specifier, ShowsTheTitleOfAValue) {
    const auto row = page("p")->row("Blur", PSCellType::LinkList);
    row->setValues({"dark", 2}, {"Dark", "Two"});
    EXPECT_EQ(row->titleForValue("dark"), "Dark");
    EXPECT_EQ(row->titleForValue(2), "Two");
    EXPECT_EQ(row->titleForValue("Dark"), "");
    EXPECT_EQ(row->titleForValue({}), "");
}

TEST_F(Specifier, MissingTitlesAreEmpty) {
    const auto row = page("p")->row("Blur", PSCellType::LinkList);
    row->setValues({"dark", "light"}, {"Dark"});
    EXPECT_EQ(row->titles(), (std::vector<std::string>{"Dark", ""}));
}

TEST_F(Specifier, KeepsItsProperties) {
    const auto group = PSSpecifier::groupSpecifierWithFooterText("below");
    EXPECT_TRUE(group->isGroup());
    EXPECT_EQ(group->name(), "");
    EXPECT_EQ(group->textForKey("footerText"), "below");
    EXPECT_EQ(group->textForKey("other"), "");
    group->setProperty(3, "number");
    EXPECT_EQ(group->propertyForKey("number"), PropertyList(3));
    EXPECT_EQ(group->textForKey("number"), "");
}

TEST_F(Specifier, ReadsItsIconWhenItIsAskedForIt) {
    int reads = 0;
    PSSpecifier row("a", PSCellType::Link);
    row.setIconImage([&] {
        ++reads;
        return nullptr;
    });
    EXPECT_TRUE(row.hasIconImage());
    EXPECT_EQ(reads, 0);
    row.iconImage();
    EXPECT_EQ(reads, 1);
}

} // namespace
