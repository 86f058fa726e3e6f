#include "platform/toolkit/scrolling/UICollectionView.h"

#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "tests/support/Finger.h"
#include "tests/support/ToolkitTest.h"

namespace toolkit {

/// Remembers which item it was made for.
class NumberedCell : public UICollectionViewCell {
    RUNTIME_CLASS()
public:
    using UICollectionViewCell::UICollectionViewCell;
    void prepareForReuse() override {
        UICollectionViewCell::prepareForReuse();
        ++reuses;
    }
    int item = -1;
    int reuses = 0;
};

runtime::Class& NumberedCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<NumberedCell>("NumberedCell", &UICollectionViewCell::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(NumberedCell)

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A strip of squares of 100 points, 20 apart, in a view of 300 × 120 with 10 points at either end.
class CollectionViewTest : public support::ToolkitTest,
                           protected CollectionViewDataSource,
                           protected CollectionViewDelegate {
protected:
    CollectionViewTest() {
        view->registerClass<NumberedCell>("cell");
        view->setDataSource(this);
        view->setCollectionViewDelegate(this);
        window->addSubview(view);
        loop.turn();
    }
    ~CollectionViewTest() override {
        view->setDataSource(nullptr);
        view->setCollectionViewDelegate(nullptr);
    }

    int numberOfItemsInSection(UICollectionView&, int) override { return items; }
    std::shared_ptr<UICollectionViewCell> cellForItemAtIndexPath(UICollectionView& asking,
                                                                 IndexPath indexPath) override {
        auto cell = std::dynamic_pointer_cast<NumberedCell>(asking.dequeueReusableCell("cell"));
        cell->item = indexPath.row();
        asked.push_back(indexPath.row());
        return cell;
    }
    void didSelectItemAtIndexPath(UICollectionView&, IndexPath indexPath) override {
        transcript.add("selected ", indexPath.section, " ", indexPath.item);
    }
    Size sizeForItemAtIndexPath(UICollectionView&, UICollectionViewFlowLayout&, IndexPath) override {
        return {side, side};
    }
    double minimumLineSpacingForSectionAtIndex(UICollectionView&, UICollectionViewFlowLayout&, int) override {
        return 20;
    }
    EdgeInsets insetForSectionAtIndex(UICollectionView&, UICollectionViewFlowLayout&, int) override {
        return {0, 10, 0, 10};
    }
    static std::shared_ptr<UICollectionViewFlowLayout> horizontal() {
        auto layout = std::make_shared<UICollectionViewFlowLayout>();
        layout->setScrollDirection(ScrollDirection::Horizontal);
        return layout;
    }
    std::vector<int> visible() const {
        std::vector<int> numbers;
        for (const IndexPath indexPath : view->indexPathsForVisibleItems())
            numbers.push_back(indexPath.row());
        return numbers;
    }
    NumberedCell& cell(int item) { return dynamic_cast<NumberedCell&>(*view->cellForItem({0, item})); }

    int items = 50;
    double side = 100;
    std::vector<int> asked;
    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
    std::shared_ptr<UICollectionView> view =
        std::make_shared<UICollectionView>(Rect(0, 0, 300, 120), horizontal());
    support::Finger finger{loop};
};

TEST_F(CollectionViewTest, PlacesItsItemsInALineAndCentresThemAcross) {
    EXPECT_EQ(view->contentSize(), (Size{10 + 50 * 100 + 49 * 20 + 10, 120}));
    EXPECT_THAT(visible(), ElementsAre(0, 1, 2));
    EXPECT_EQ(cell(0).frame(), Rect(10, 10, 100, 100));
    EXPECT_EQ(cell(2).frame(), Rect(250, 10, 100, 100));
    EXPECT_EQ(cell(1).contentView()->frame(), Rect(0, 0, 100, 100));
}

TEST_F(CollectionViewTest, OnlyWhatIsLookedAtHasACell) {
    view->setContentOffset({1200, 0});
    EXPECT_THAT(visible(), ElementsAre(10, 11, 12));
    EXPECT_EQ(cell(11).item, 11);
    EXPECT_EQ(cell(11).frame().x, 10 + 11 * 120);
    EXPECT_EQ(view->cellForItem({0, 0}), nullptr);
}

TEST_F(CollectionViewTest, CellsThatLeaveAreShownAgain) {
    const auto first = view->cellForItem({0, 0});
    view->setContentOffset({1200, 0});
    bool shownAgain = false;
    for (const IndexPath indexPath : view->indexPathsForVisibleItems())
        shownAgain = shownAgain || view->cellForItem(indexPath) == first;
    EXPECT_TRUE(shownAgain);
    EXPECT_EQ(dynamic_cast<NumberedCell&>(*first).reuses, 1);
    EXPECT_LE(view->subviews().size(), 4u);
}

TEST_F(CollectionViewTest, NothingIsRegisteredUnderAnotherIdentifier) {
    EXPECT_EQ(view->dequeueReusableCell("other"), nullptr);
}

TEST_F(CollectionViewTest, ReloadsAtTheNextLayout) {
    asked.clear();
    items = 2;
    view->reloadSections({0});
    view->reloadSections({0});
    EXPECT_THAT(asked, IsEmpty());
    loop.turn();
    EXPECT_THAT(asked, ElementsAre(0, 1));
    EXPECT_EQ(view->contentSize().width, 240);
    items = 0;
    view->reloadData();
    loop.turn();
    EXPECT_THAT(visible(), IsEmpty());
    EXPECT_EQ(view->contentSize().width, 20);
    view->reloadSections({});
    items = 5;
    loop.turn();
    EXPECT_THAT(visible(), IsEmpty()) << "no section was named";
}

TEST_F(CollectionViewTest, FewerItemsBringTheOffsetBack) {
    view->setContentOffset({1200, 0});
    items = 4;
    view->reloadData();
    loop.turn();
    EXPECT_EQ(view->contentOffset(), (Point{480 - 300, 0}));
    EXPECT_THAT(visible(), ElementsAre(1, 2, 3));
}

TEST_F(CollectionViewTest, AnotherSizePlacesTheItemsAnew) {
    asked.clear();
    side = 60;
    view->setFrame({0, 0, 300, 80});
    loop.turn();
    EXPECT_EQ(cell(1).frame(), Rect(10 + 80, 10, 60, 60));
    EXPECT_THAT(asked, ElementsAre(3)) << "cells that are shown stay";
}

TEST_F(CollectionViewTest, WhatAnAnimatedOffsetPassesIsThere) {
    view->setContentOffsetAnimated({600, 0});
    EXPECT_THAT(visible(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_FALSE(cell(7).layer()->hasAnimations()) << "cells stand where they are while the view scrolls";
    loop.advance(1);
    view->setContentOffset({601, 0});
    EXPECT_THAT(visible(), ElementsAre(5, 6, 7));
}

TEST_F(CollectionViewTest, AFarFlightShowsItsTwoEnds) {
    items = 100'000;
    view->reloadData();
    loop.turn();
    view->setContentOffsetAnimated({120.0 * 90'000, 0});
    EXPECT_THAT(visible(), ElementsAre(0, 1, 2, 90'000, 90'001, 90'002));
}

TEST_F(CollectionViewTest, ATapSelects) {
    finger.tap({180, 60});
    EXPECT_THAT(transcript.take(), ElementsAre("selected 0 1"));
    finger.tap({120, 60});
    EXPECT_THAT(transcript.take(), IsEmpty()) << "between two cells";
}

TEST_F(CollectionViewTest, ADragScrollsAndSelectsNothing) {
    finger.down({180, 60});
    EXPECT_TRUE(cell(1).isHighlighted());
    finger.moveTo({80, 60}, 6);
    EXPECT_FALSE(cell(1).isHighlighted());
    finger.up();
    EXPECT_GT(view->contentOffset().x, 80);
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(CollectionViewTest, ATouchThatStopsTheContentSelectsNothing) {
    finger.down({280, 60});
    finger.moveTo({20, 60}, 5);
    finger.up();
    ASSERT_TRUE(view->isDecelerating());
    finger.tap({150, 60});
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST_F(CollectionViewTest, AFingerThatSlipsOffSelectsNothing) {
    view->setScrollEnabled(false);
    finger.down({180, 60});
    finger.moveTo({180, 300}, 3);
    finger.up();
    EXPECT_THAT(transcript.take(), IsEmpty());
}

TEST(CollectionViewLayout, SectionsFollowOneAnother) {
    UICollectionViewFlowLayout layout;
    layout.layOut({{{1, 2, 3, 4}, 5, {{10, 20}, {30, 40}}}, {{}, 0, {{50, 50}}}}, {100, 100});
    EXPECT_EQ(layout.contentSize(), (Size{100, 1 + 20 + 5 + 40 + 3 + 50}));
    EXPECT_EQ(layout.frameForItem({0, 0}), Rect(2 + (94 - 10) / 2.0, 1, 10, 20));
    EXPECT_EQ(layout.frameForItem({0, 1}), Rect(2 + (94 - 30) / 2.0, 26, 30, 40));
    EXPECT_EQ(layout.frameForItem({1, 0}), Rect(25, 69, 50, 50));
    EXPECT_FALSE(layout.contains({1, 1}));
    EXPECT_FALSE(layout.contains({-1, 0}));
    EXPECT_EQ(layout.frameForItem({2, 0}), Rect());
    EXPECT_THAT(layout.itemsIn({0, 21, 100, 5}), IsEmpty()) << "between the first two";
    EXPECT_THAT(layout.itemsIn({0, 20, 100, 50}),
                ElementsAre(IndexPath{0, 0}, IndexPath{0, 1}, IndexPath{1, 0}));
}

} // namespace
} // namespace toolkit
