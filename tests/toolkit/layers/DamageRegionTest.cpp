#include "platform/toolkit/layers/DamageRegion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const PixelRect screen{0, 0, 1000, 1000};

TEST(DamageRegion, CutsToTheScreen) {
    DamageRegion region(screen);
    region.add({-10, 990, 50, 50});
    region.add({2000, 0, 5, 5});
    EXPECT_THAT(region.rects(), ElementsAre(PixelRect{0, 990, 40, 10}));
}

TEST(DamageRegion, CutsNothingThatItHoldsAllOfThatIsOnTheScreen) {
    DamageRegion region(screen);
    region.add({900, 0, 100, 50});
    EXPECT_FALSE(region.cuts({950, 0, 51, 50}));
    EXPECT_TRUE(region.cuts({950, 0, 51, 51}));
    EXPECT_FALSE(region.cuts({1000, 0, 10, 10}));
}

TEST(DamageRegion, KeepsWhatLiesFarApart) {
    DamageRegion region(screen);
    region.add({0, 0, 10, 10});
    region.add({900, 900, 10, 10});
    EXPECT_THAT(region.rects(), UnorderedElementsAre(PixelRect{0, 0, 10, 10}, PixelRect{900, 900, 10, 10}));
    EXPECT_TRUE(region.intersects({5, 5, 1, 1}));
    EXPECT_FALSE(region.intersects({500, 500, 100, 100}));
}

TEST(DamageRegion, TakesNothingTwice) {
    DamageRegion region(screen);
    region.add({0, 0, 100, 100});
    region.add({10, 10, 10, 10});
    region.add({0, 0, 100, 100});
    region.add({});
    EXPECT_THAT(region.rects(), ElementsAre(PixelRect{0, 0, 100, 100}));
    EXPECT_THAT(DamageRegion(screen).rects(), IsEmpty());
}

TEST(DamageRegion, OfManyRectanglesIsAFewThatHoldEachOfThemAndDoNotOverlap) {
    std::mt19937 random(7);
    const auto upTo = [&](int limit) { return std::uniform_int_distribution<int>(0, limit)(random); };
    for (int round = 0; round < 200; ++round) {
        DamageRegion region(screen);
        std::vector<PixelRect> added;
        for (int i = 0; i < 20; ++i) {
            added.push_back({upTo(1100) - 50, upTo(1100) - 50, upTo(120), upTo(120)});
            region.add(added.back());
        }
        EXPECT_LE(region.rects().size(), 6u);
        for (const PixelRect& rect : added) {
            const PixelRect visible = rect.intersection(screen);
            const auto holds = [&](const PixelRect& whole) { return whole.contains(visible); };
            EXPECT_TRUE(visible.isEmpty() || std::ranges::any_of(region.rects(), holds));
        }
        for (std::size_t i = 0; i < region.rects().size(); ++i)
            for (std::size_t j = i + 1; j < region.rects().size(); ++j)
                EXPECT_FALSE(region.rects()[i].intersects(region.rects()[j]));
    }
}

} // namespace
} // namespace toolkit
