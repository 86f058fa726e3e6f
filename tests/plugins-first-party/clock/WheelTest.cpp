#include "plugins/clock/Wheel.h"

#include <gtest/gtest.h>

namespace clockplugin {

TEST(Wheel, ComesToRestOnAWholeRow) {
    Wheel wheel(60);
    wheel.setValue(10);
    wheel.grab(0);
    wheel.drag(2.3, 1);
    EXPECT_NEAR(wheel.position(1), 12.3, 1e-9);
    wheel.release(5); // it has rested: no throw
    EXPECT_EQ(wheel.value(), 12);
    EXPECT_TRUE(wheel.isRolling(5.1));
    EXPECT_FALSE(wheel.isRolling(6));
    EXPECT_EQ(wheel.position(6), 12);
}

TEST(Wheel, GoesAround) {
    Wheel wheel(60);
    wheel.setValue(58);
    wheel.step(3, 0);
    EXPECT_EQ(wheel.value(), 1);
    wheel.step(-4, 10);
    EXPECT_EQ(wheel.value(), 57);
    EXPECT_GE(wheel.position(10.1), 0);
    EXPECT_LT(wheel.position(10.1), 60);
}

TEST(Wheel, AThrownOneGoesOnButNotForEver) {
    Wheel wheel(60);
    wheel.grab(0);
    wheel.drag(0.5, 0.02);
    wheel.drag(1, 0.04);
    wheel.release(0.05);
    EXPECT_GT(wheel.value(), 1);
    wheel.setValue(0);
    wheel.grab(10);
    wheel.drag(1000, 10.001);
    wheel.release(10.002);
    EXPECT_EQ(wheel.value(), (1000 + 12) % 60);
}

TEST(Wheel, KeepsValuesWithinItsNumbers) {
    Wheel wheel(24);
    wheel.setValue(99);
    EXPECT_EQ(wheel.value(), 23);
    wheel.setValue(-1);
    EXPECT_EQ(wheel.value(), 0);
    wheel.drag(5, 0); // not grabbed
    wheel.release(0);
    EXPECT_EQ(wheel.value(), 0);
}

} // namespace clockplugin
