#include "tests/preferences/PreferencesTest.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/preferences/PSSwitchTableCell.h"
#include "platform/preferences/UINavigationController.h"

using foundation::PropertyList;
using preferences::PSCellType;
using preferences::PSSpecifier;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// Writes down what a page says of its rows.
struct Observer : preferences::PSListObserver {
    void specifiersReloaded() override { lines.add("reloaded"); }
    void specifierAdded(std::size_t index, bool animated) override {
        lines.add("added ", index, animated ? " animated" : "");
    }
    void specifierRemoved(std::size_t index, bool animated) override {
        lines.add("removed ", index, animated ? " animated" : "");
    }
    void specifierChanged(const std::shared_ptr<PSSpecifier>& specifier) override {
        lines.add("changed ", specifier->name());
    }
    support::Transcript lines;
};

struct ListController : tests::PreferencesTest {
    ListController() { list->setObserver(&observer); }
    std::shared_ptr<PSSpecifier> row(const std::string& name, PSCellType type = PSCellType::Link,
                                     const std::string& detail = "") {
        auto made = list->row(name, type, detail);
        list->rows.push_back(made);
        return made;
    }
    void group(const std::string& name) { list->rows.push_back(PSSpecifier::groupSpecifierWithName(name)); }

    std::shared_ptr<tests::RecordingPage> list = page("list");
    Observer observer;
};

TEST_F(ListController, BuildsItsRowsOnceAndAgainWhenNoneAreKept) {
    row("a");
    list->specifiers();
    list->reloadSpecifiers();
    list->specifiers();
    EXPECT_EQ(list->made, 1);
    list->setSpecifiers({});
    list->specifiers();
    EXPECT_EQ(list->made, 2);
    EXPECT_THAT(observer.lines.take(), ElementsAre("reloaded", "reloaded"));
}

TEST_F(ListController, GathersRowsUnderTheirGroups) {
    row("before");
    group("first");
    row("a");
    row("b");
    group("empty");
    const auto sections = list->sections();
    ASSERT_EQ(sections.size(), 3u);
    EXPECT_FALSE(sections[0].group);
    EXPECT_THAT(sections[0].rows, SizeIs(1));
    EXPECT_EQ(sections[1].group->name(), "first");
    EXPECT_THAT(sections[1].rows, SizeIs(2));
    EXPECT_EQ(sections[2].group->name(), "empty");
    EXPECT_THAT(sections[2].rows, IsEmpty());
}

TEST_F(ListController, FindsRowsButNoGroups) {
    group("a");
    const auto a = row("a");
    EXPECT_EQ(list->specifierForID("a"), a);
    EXPECT_FALSE(list->specifierForID("b"));
}

TEST_F(ListController, TellsOfRowsThatComeAndGo) {
    const auto a = row("a");
    list->specifiers();
    const auto b = list->row("b", PSCellType::Switch);
    list->addSpecifier(b, true);
    list->addSpecifier(nullptr, true);
    list->removeSpecifier(a, false);
    list->removeSpecifier(a, false);
    list->reloadSpecifier(b);
    EXPECT_THAT(observer.lines.take(), ElementsAre("added 1 animated", "removed 0", "changed b"));
    EXPECT_THAT(list->specifiers(), ElementsAre(b));
}

TEST_F(ListController, DeletesWhatCanBeDeleted) {
    const auto kept = row("kept");
    const auto gone = row("gone");
    gone->setDeletionAction("removed:");
    list->specifiers();
    list->performDeletionActionForSpecifier(kept);
    EXPECT_THAT(told(), IsEmpty());
    list->performDeletionActionForSpecifier(gone);
    EXPECT_THAT(told(), ElementsAre("removed gone"));
    EXPECT_THAT(list->specifiers(), ElementsAre(kept));
    EXPECT_THAT(observer.lines.take(), ElementsAre("removed 1 animated"));
}

TEST_F(ListController, MakesCellsByName) {
    const auto cellRow = row("a", PSCellType::Switch);
    cellRow->setProperty("PSSwitchTableCell", "cellClass");
    list->values["a"] = true;
    list->view()->setFrame({0, 0, 320, 480});
    const auto cell = list->cellForSpecifier(cellRow);
    auto* switchCell = dynamic_cast<preferences::PSSwitchTableCell*>(cell.get());
    ASSERT_TRUE(switchCell);
    EXPECT_EQ(cell->specifier(), cellRow);
    EXPECT_EQ(cell->frame(), toolkit::Rect(0, 0, 320, 44));
    EXPECT_TRUE(switchCell->control()->isOn());
    EXPECT_EQ(list->cellForSpecifier(cellRow), cell);
    list->reloadSpecifiers();
    EXPECT_NE(list->cellForSpecifier(cellRow), cell);
}

TEST_F(ListController, ACellThatIsTurnedStoresItsValue) {
    const auto cellRow = row("a", PSCellType::Switch);
    cellRow->setProperty("PSSwitchTableCell", "cellClass");
    const auto cell = list->cellForSpecifier(cellRow);
    auto& control = *dynamic_cast<preferences::PSSwitchTableCell&>(*cell).control();
    control.setOn(true);
    control.sendActions(toolkit::ControlEvent::ValueChanged);
    EXPECT_THAT(told(), ElementsAre("store a 1"));
}

TEST_F(ListController, NamesThatAreNoCellMakeNone) {
    for (const char* name : {"", "NoSuchClass", "PSListController", "PSSpecifier"}) {
        const auto made = row(name);
        made->setProperty(name, "cellClass");
        made->setProperty(name, "headerCellClass");
        EXPECT_FALSE(list->cellForSpecifier(made)) << name;
        EXPECT_FALSE(list->headerCellForGroup(made)) << name;
    }
}

TEST_F(ListController, ATapSendsTheActionOrOpensThePage) {
    const auto navigation = std::make_shared<preferences::UINavigationController>();
    navigation->pushViewController(list, false);
    const auto button = row("button", PSCellType::Link, "RecordingPage");
    button->setButtonAction("tapped");
    const auto link = row("link", PSCellType::Link, "RecordingPage");
    const auto nowhere = row("nowhere", PSCellType::Link, "NoSuchPage");
    const auto text = row("text", PSCellType::StaticText);
    told();
    list->selectSpecifier(button);
    EXPECT_THAT(told(), ElementsAre("tapped"));
    list->selectSpecifier(nowhere);
    list->selectSpecifier(text);
    EXPECT_THAT(navigation->viewControllers(), SizeIs(1));
    list->selectSpecifier(link);
    ASSERT_THAT(navigation->viewControllers(), SizeIs(2));
    EXPECT_EQ(navigation->topViewController()->title(), "link");
    EXPECT_EQ(navigation->topViewController()->specifier(), link);
}

TEST_F(ListController, WithoutAStackOpensNothing) {
    list->selectSpecifier(row("link", PSCellType::Link, "RecordingPage"));
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(ListController, ChoicesStoreTheirValues) {
    const auto choice = row("Size", PSCellType::LinkList, "PSListItemsController");
    choice->setValues({1, 2, 3}, {"One", "Two", "Two"});
    list->values["Size"] = 2;
    const auto choices =
        std::dynamic_pointer_cast<preferences::PSListItemsController>(list->controllerForSpecifier(choice));
    ASSERT_TRUE(choices);
    EXPECT_EQ(choices->title(), "Size");
    const auto all = choices->specifiers();
    ASSERT_THAT(all, SizeIs(4)); // a group and three choices
    EXPECT_TRUE(choices->isSpecifierChecked(all[2]));
    EXPECT_FALSE(choices->isSpecifierChecked(all[3]));
    choices->setObserver(&observer);
    choices->selectSpecifier(all[3]); // of two titles that are the same, the one that was meant
    EXPECT_THAT(told(), ElementsAre("store Size 3"));
    EXPECT_THAT(observer.lines.take(), ElementsAre("changed One", "changed Two", "changed Two"));
    EXPECT_TRUE(choices->isSpecifierChecked(all[3]));
    choices->selectSpecifier(all[0]);
    choices->selectSpecifier(choice);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(ListController, AStreamOfValuesStoresOneAFrameAndTheLast) {
    const auto slider = row("s", PSCellType::Slider);
    const auto other = row("t", PSCellType::Slider);
    for (int i = 1; i <= 5; ++i)
        list->setValueSoon(i, slider);
    list->setValueSoon(9, other);
    EXPECT_THAT(told(), ElementsAre("store s 1", "store t 9"));
    loop.advance(foundation::RunLoop::frameInterval);
    EXPECT_THAT(told(), ElementsAre("store s 5"));
    list->setValueSoon(6, slider);
    loop.advance(foundation::RunLoop::frameInterval);
    EXPECT_THAT(told(), ElementsAre("store s 6"));
    loop.advance(1);
    list->setValueSoon(7, slider); // quiet since
    EXPECT_THAT(told(), ElementsAre("store s 7"));
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(ListController, WhatIsHeldBackIsStoredWhenThePageGoes) {
    const auto slider = row("s", PSCellType::Slider);
    list->setValueSoon(1, slider);
    list->setValueSoon(2, slider);
    list->viewWillDisappear(false);
    EXPECT_THAT(told(), ElementsAre("store s 1", "list will disappear", "store s 2"));
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(ListController, MayEndWithValuesHeldBack) {
    const auto slider = row("s", PSCellType::Slider);
    list->setValueSoon(1, slider);
    list->setValueSoon(2, slider);
    list->rows.clear();
    list.reset();
    loop.advance(1);
    EXPECT_THAT(told(), ElementsAre("store s 1"));
}

} // namespace
