#include "plugins/system/History.h"

#include "plugins/system/CardStack.h"
#include "plugins/system/Graph.h"

#include <gmock/gmock.h>

#include <limits>

namespace systemplugin {

TEST(History, KeepsTheLastMinute) {
    History history;
    for (int second = 0; second <= 100; ++second)
        history.add(second, second);
    EXPECT_EQ(history.samples().front().time, 40);
    EXPECT_EQ(history.samples().size(), 61u);
    EXPECT_EQ(history.largest(), 100);
}

TEST(History, BeginsAnewWhenTheClockDoes) {
    History history;
    history.add(10, 1);
    history.add(10, 2); // the same moment again
    EXPECT_THAT(history.samples(), testing::ElementsAre(History::Sample{10, 2}));
    history.add(5, 3);
    EXPECT_THAT(history.samples(), testing::ElementsAre(History::Sample{5, 3}));
    history.add(6, std::numeric_limits<double>::quiet_NaN());
    history.add(6, std::numeric_limits<double>::infinity());
    EXPECT_EQ(history.samples().size(), 1u);
}

TEST(Graph, HasGapsWhereNothingWasMeasured) {
    History history;
    for (const double time : {0.0, 1.0, 2.0, 30.0, 31.0})
        history.add(time, 0.5);
    const auto pieces = graphPieces(history, 31, 1, {0, 0, 60, 100});
    ASSERT_EQ(pieces.size(), 2u);
    EXPECT_EQ(pieces[0].size(), 3u);
    EXPECT_NEAR(pieces[0].front().x, 29, 1e-9);
    EXPECT_EQ(pieces[1].back(), (vela::plugin::Point{60, 50}));
}

TEST(Graph, KeepsValuesWithinItsEdges) {
    History history;
    history.add(0, -5);
    history.add(1, 1e9);
    const auto pieces = graphPieces(history, 1, 1, {0, 0, 60, 100});
    for (const auto& point : pieces.at(0)) {
        EXPECT_GE(point.y, 0);
        EXPECT_LE(point.y, 100);
    }
    EXPECT_EQ(graphPieces(history, 0.5, 0, {0, 0, 60, 100}).at(0).size(), 1u);
}

TEST(Graph, HasARoundUpperEdge) {
    EXPECT_EQ(roundedTop(0, 1000), 1000);
    EXPECT_EQ(roundedTop(1200, 1000), 2000);
    EXPECT_EQ(roundedTop(4500, 1000), 5000);
    EXPECT_EQ(roundedTop(7000, 1000), 10000);
    EXPECT_EQ(roundedTop(std::numeric_limits<double>::infinity(), 1000), 1000);
    EXPECT_EQ(roundedTop(std::numeric_limits<double>::quiet_NaN(), 1000), 1000);
}

TEST(CardStack, GivesWhatIsLeftToTheGraphs) {
    const std::vector<CardHeight> cards{{100, true}, {50, false}, {100, true}};
    EXPECT_THAT(cardHeights(cards, 370, 10), testing::ElementsAre(150, 50, 150));
    EXPECT_THAT(cardHeights(cards, 0, 10), testing::ElementsAre(100, 50, 100));
    EXPECT_TRUE(cardHeights({}, 100, 10).empty());
}

} // namespace systemplugin
