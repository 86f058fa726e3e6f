#include "plugins/calculator/KeyGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <set>

namespace vela::plugin {

void PrintTo(const Size& size, std::ostream* stream) {
    *stream << size.width << " x " << size.height;
}

} // namespace vela::plugin

namespace calculatorplugin {

using vela::plugin::Rect;

class KeyGridOfSize : public testing::TestWithParam<vela::plugin::Size> {};

TEST_P(KeyGridOfSize, HasEveryKeyOnceAndLargeEnoughForAFinger) {
    const Rect bounds{0, 0, GetParam().width, GetParam().height};
    const KeyGrid grid = KeyGrid::in(bounds);
    std::set<Key> keys;
    for (const PlacedKey& placed : grid.keys) {
        keys.insert(placed.key);
        EXPECT_GE(placed.frame.width, 44) << static_cast<int>(placed.key);
        EXPECT_GE(placed.frame.height, 44 - 1e-9) << static_cast<int>(placed.key);
        EXPECT_GE(placed.frame.x, 0);
        EXPECT_LE(placed.frame.right(), bounds.width + 1e-9);
        EXPECT_LE(placed.frame.bottom(), bounds.height + 1e-9);
        EXPECT_GE(placed.frame.y, grid.display.bottom() - 1e-9);
    }
    EXPECT_EQ(grid.keys.size(), 23u);
    EXPECT_EQ(keys.size(), 23u);
    EXPECT_GE(grid.display.height, 32);
}

TEST_P(KeyGridOfSize, HasNoTwoKeysAtOnePlace) {
    const KeyGrid grid = KeyGrid::in({0, 0, GetParam().width, GetParam().height});
    for (double x = 0.5; x < GetParam().width; x += 3)
        for (double y = 0.5; y < GetParam().height; y += 3) {
            const auto there = std::count_if(grid.keys.begin(), grid.keys.end(), [&](const PlacedKey& key) {
                return key.frame.contains({x, y});
            });
            ASSERT_LE(there, 1) << x << " " << y;
        }
}

INSTANTIATE_TEST_SUITE_P(PanelSizes, KeyGridOfSize,
                         testing::Values(vela::plugin::Size{280, 560}, vela::plugin::Size{320, 480},
                                         vela::plugin::Size{280, 320}, vela::plugin::Size{300, 220},
                                         vela::plugin::Size{600, 300}, vela::plugin::Size{400, 900},
                                         vela::plugin::Size{580, 950}));

TEST(KeyGrid, BearsAViewWithoutSize) {
    EXPECT_EQ(KeyGrid::in({}).keys.size(), 23u);
}

} // namespace calculatorplugin
