#include "platform/toolkit/geometry/AffineTransform.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

namespace toolkit {
namespace {

void expectNear(const AffineTransform& actual, const AffineTransform& expected) {
    EXPECT_NEAR(actual.a, expected.a, 1e-12);
    EXPECT_NEAR(actual.b, expected.b, 1e-12);
    EXPECT_NEAR(actual.c, expected.c, 1e-12);
    EXPECT_NEAR(actual.d, expected.d, 1e-12);
    EXPECT_NEAR(actual.tx, expected.tx, 1e-12);
    EXPECT_NEAR(actual.ty, expected.ty, 1e-12);
}

TEST(AffineTransform, TurnsTheXAxisTowardsTheYAxis) {
    const Point turned = AffineTransform::rotation(std::numbers::pi / 2).apply(Point{1, 0});
    EXPECT_NEAR(turned.x, 0, 1e-12);
    EXPECT_NEAR(turned.y, 1, 1e-12);
}

TEST(AffineTransform, AppliesItselfBeforeTheNext) {
    const AffineTransform both = AffineTransform::translation(10, 0).then(AffineTransform::scale(2, 3));
    EXPECT_EQ(both.apply(Point{1, 1}), (Point{22, 3}));
}

TEST(AffineTransform, ThenItsInverseIsTheIdentity) {
    const AffineTransform map = AffineTransform::rotation(0.7)
                                    .then(AffineTransform::scale(2, 0.3))
                                    .then(AffineTransform::translation(5, -9));
    expectNear(map.then(map.inverted()), AffineTransform());
    expectNear(map.inverted().then(map), AffineTransform());
}

TEST(AffineTransform, HasTheIdentityForTheWayBackFromAFlatPlane) {
    EXPECT_TRUE(AffineTransform::scale(0, 1).inverted().isIdentity());
    EXPECT_TRUE(AffineTransform::scale(1e-200, 1e-200).inverted().isIdentity());
}

TEST(AffineTransform, MakesTheBoundingBoxOfATurnedRectangle) {
    const Rect box = AffineTransform::rotation(std::numbers::pi / 2).apply(Rect{10, 20, 30, 40});
    EXPECT_NEAR(box.x, -60, 1e-9);
    EXPECT_NEAR(box.y, 10, 1e-9);
    EXPECT_NEAR(box.width, 40, 1e-9);
    EXPECT_NEAR(box.height, 30, 1e-9);
}

TEST(AffineTransform, KeepsSizesPositiveWhenItMirrors) {
    EXPECT_EQ(AffineTransform::scale(-2, 1).apply(Size{10, 5}), (Size{20, 5}));
    EXPECT_EQ(AffineTransform::scale(-1, 1).apply(Rect{10, 0, 5, 5}), (Rect{-15, 0, 5, 5}));
}

} // namespace
} // namespace toolkit
