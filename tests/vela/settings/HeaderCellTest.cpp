#include "tests/vela/settings/SettingsTest.h"

#include "platform/toolkit/animation/Animation.h"
#include "platform/toolkit/layers/LayerAnimations.h"
#include "vela/settings/PageState.h"
#include "vela/settings/velaBar.h"
#include "vela/settings/velaCell.h"

#include <algorithm>
#include <map>

using testing::AllOf;
using testing::Each;
using testing::Ge;
using testing::Le;
using toolkit::Color;
using toolkit::Rect;
using vela::velaBar;

namespace {

const Color red = Color::rgba(1, 72 / 255.0, 95 / 255.0, 1);
const Color grey = Color::rgba(222 / 255.0, 222 / 255.0, 222 / 255.0, 1);
const Color unlit = Color::rgba(0.2, 0.2, 0.2, 0.7);

struct HeaderCell : tests::SettingsTest {
    void make(bool enabled) {
        preferences({{"Enable", enabled}});
        cell = std::make_shared<vela::velaCell>();
        cell->initWithSpecifier(preferences::PSSpecifier::emptyGroupSpecifier());
    }
    std::vector<velaBar*> bars() {
        std::vector<velaBar*> found;
        for (const auto& view : cell->subviews())
            found.push_back(&dynamic_cast<velaBar&>(*view));
        return found;
    }
    /// The bars of a number, the lowest first.
    std::vector<velaBar*> barsOf(int number) {
        std::vector<velaBar*> found = bars();
        std::erase_if(found, [&](const velaBar* bar) { return bar->tag() != number; });
        return found;
    }
    std::vector<double> heights() {
        std::vector<double> found;
        for (const velaBar* bar : bars())
            found.push_back(bar->frame().height);
        return found;
    }
    void expectCentred() {
        for (const velaBar* bar : bars())
            EXPECT_DOUBLE_EQ(bar->frame().center().y, 100) << bar->tag();
    }
    /// The model heights of the bars in the default colour.
    std::vector<double> unlitHeights() {
        std::vector<double> found;
        for (const velaBar* bar : bars())
            if (bar->hasDefaultColor())
                found.push_back(bar->frame().height);
        return found;
    }

    std::shared_ptr<vela::velaCell> cell;
};

TEST_F(HeaderCell, IsClearAndTwoHundredPointsHigh) {
    make(true);
    EXPECT_EQ(cell->preferredHeightForWidth(1), 200);
    EXPECT_EQ(cell->preferredHeightForWidth(1000), 200);
    EXPECT_EQ(cell->reuseIdentifier(), "headerCell");
    EXPECT_EQ(cell->style(), 0);
    EXPECT_TRUE(cell->backgroundColor()->isClear());
}

TEST_F(HeaderCell, SpreadsFiftyBarsOverTheScreensWidth) {
    for (double width : {375.0, 667.0}) {
        screen(width, 500);
        make(false);
        EXPECT_EQ(bars().size(), 54u);
        const double gap = (width - 150) / 51;
        for (int number = 1; number <= 50; ++number)
            for (const velaBar* bar : barsOf(number)) {
                EXPECT_DOUBLE_EQ(bar->frame().x, gap + (number - 1) * (gap + 3)) << number;
                EXPECT_EQ(bar->frame().width, 3);
                EXPECT_EQ(bar->frame().height, 4);
                EXPECT_EQ(bar->frame().y, 98);
                EXPECT_EQ(bar->layer()->cornerRadius(), 1.5);
            }
    }
}

TEST_F(HeaderCell, ColoursItsBarsByNumber) {
    make(false);
    std::map<int, Color> expected;
    for (int number : {18, 19, 20, 22, 23, 24, 25, 26, 27, 29, 30, 31, 32, 33})
        expected[number] = red;
    for (int number : {10, 11, 12, 13, 14, 15, 16, 17, 35, 38, 41})
        expected[number] = grey;
    for (int number = 1; number <= 50; ++number)
        EXPECT_EQ(barsOf(number).front()->backgroundColor(),
                  expected.contains(number) ? expected[number] : unlit)
            << number;
}

TEST_F(HeaderCell, LaysSecondBarsOnFour) {
    make(false);
    const std::map<int, Color> expected{{14, Color::rgba(1, 195 / 255.0, 202 / 255.0)},
                                        {15, Color::rgba(1, 135 / 255.0, 150 / 255.0)},
                                        {16, red},
                                        {17, red}};
    for (int number = 1; number <= 50; ++number) {
        const auto found = barsOf(number);
        ASSERT_EQ(found.size(), expected.contains(number) ? 2u : 1u) << number;
        if (found.size() == 2) {
            EXPECT_EQ(found.back()->backgroundColor(), expected.at(number)) << number;
        }
    }
}

TEST_F(HeaderCell, FormsItsFigureWhileTheProductIsOn) {
    make(true);
    const std::map<int, double> figure{
        {10, 17}, {11, 60}, {12, 79}, {13, 91}, {14, 100}, {15, 106}, {16, 111}, {17, 113}, {35, 78},
        {38, 78}, {41, 78}, {18, 14}, {19, 5},  {20, 35},  {22, 14},  {23, 25},  {24, 35},  {25, 35.5},
        {26, 30}, {27, 11}, {29, 30}, {30, 14}, {31, 14},  {32, 20},  {33, 33}};
    const std::map<int, double> second{{14, 25}, {15, 31}, {16, 34}, {17, 23}};
    for (int number = 1; number <= 50; ++number) {
        const auto found = barsOf(number);
        EXPECT_EQ(found.front()->frame().height, figure.contains(number) ? figure.at(number) : 4) << number;
        if (second.contains(number)) {
            EXPECT_EQ(found.back()->frame().height, second.at(number)) << number;
        }
    }
    expectCentred();
    EXPECT_THAT(unlitHeights(), Each(4)); // left alone until the figure stands
}

TEST_F(HeaderCell, MovesTheOtherBarsOnceTheFigureStands) {
    make(true);
    const auto figure = heights();
    wait(0.29);
    EXPECT_THAT(unlitHeights(), Each(4));
    wait(0.02);
    EXPECT_THAT(unlitHeights(), Each(AllOf(Ge(3), Le(9))));
    EXPECT_THAT(unlitHeights(), testing::Contains(testing::Ne(4)));
    expectCentred();
    const auto moved = heights();
    for (std::size_t i = 0; i < figure.size(); ++i)
        if (!bars()[i]->hasDefaultColor()) {
            EXPECT_EQ(moved[i], figure[i]);
        }
}

TEST_F(HeaderCell, LiesDownAndThenMovesEveryBarWhileTheProductIsOff) {
    make(false);
    EXPECT_THAT(heights(), Each(4));
    wait(0.31);
    EXPECT_THAT(heights(), Each(AllOf(Ge(3), Le(9))));
    for (const double height : {3, 9})
        EXPECT_THAT(heights(), testing::Contains(height));
    expectCentred();
}

TEST_F(HeaderCell, ComesToRest) {
    for (bool enabled : {true, false}) {
        make(enabled);
        wait(0.3 + 99 / 75.0 + 1.25 + 0.1);
        EXPECT_FALSE(toolkit::AnimationEngine::shared().isAnimating());
    }
}

TEST_F(HeaderCell, GoesFromOneStateToTheOther) {
    make(true);
    wait(1);
    cell->animateViewsForDisbaled();
    EXPECT_THAT(heights(), Each(4));
    wait(0.1);
    cell->animateViews(); // before all lie
    EXPECT_EQ(barsOf(17).front()->frame().height, 113);
    wait(0.25);
    // What the first would have done after its end is not done.
    EXPECT_THAT(unlitHeights(), Each(4));
    wait(0.1);
    EXPECT_EQ(barsOf(17).front()->frame().height, 113);
    EXPECT_THAT(unlitHeights(), Each(AllOf(Ge(3), Le(9))));
}

TEST_F(HeaderCell, EndsWhatStillMovesBeforeItForms) {
    make(false);
    wait(0.5);
    cell->animateViews();
    for (const velaBar* bar : bars())
        if (bar->hasDefaultColor()) {
            const auto shown = bar->layer()->presented(toolkit::LayerProperty::Bounds);
            EXPECT_EQ(std::get<Rect>(shown).height, bar->frame().height) << bar->tag();
        }
}

TEST_F(HeaderCell, EndsWhatStillMovesBeforeItLiesDown) {
    make(false);
    wait(0.5);
    const auto targets = heights();
    cell->animateViewsForDisbaled();
    for (std::size_t i = 0; i < targets.size(); ++i) {
        const auto shown = bars()[i]->layer()->presented(toolkit::LayerProperty::Bounds);
        EXPECT_EQ(std::get<Rect>(shown).height, targets[i]) << i;
    }
}

TEST_F(HeaderCell, BringsEveryBarToRestWithinItsLongestDelayAndMovement) {
    make(false);
    wait(0.3 + 0.8);
    EXPECT_TRUE(toolkit::AnimationEngine::shared().isAnimating());
    wait(99 / 75.0 - 0.8 + 9 / 40.0 + 0.25 + 0.02);
    EXPECT_FALSE(toolkit::AnimationEngine::shared().isAnimating());
}

TEST_F(HeaderCell, MayGoWhileItMoves) {
    make(true);
    cell.reset();
    vela::pageState() = {};
    wait(2);
    EXPECT_FALSE(toolkit::AnimationEngine::shared().isAnimating());
}

} // namespace
