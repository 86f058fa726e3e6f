#include "hosts/phone/picture/DeviceLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace phone {
namespace {

using toolkit::DeviceOrientation;
using toolkit::Point;
using Part = DevicePicture::Part;

constexpr double quarter = std::numbers::pi / 2;

void expectNear(Point actual, Point expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

TEST(DevicePicture, FindsTheScreenAndTheButtons) {
    const DevicePicture picture({375, 667});
    EXPECT_EQ(picture.screen().size(), toolkit::Size(375, 667));
    EXPECT_EQ(picture.partAt(picture.screen().origin()), Part::Screen);
    EXPECT_EQ(picture.partAt(picture.screen().center()), Part::Screen);
    for (const Part part : {Part::Home, Part::Lock, Part::VolumeUp, Part::VolumeDown})
        EXPECT_EQ(picture.partAt(picture.button(part).center()), part);
    EXPECT_EQ(picture.partAt({5, 5}), Part::None);
}

TEST(DevicePicture, LetsSideButtonsBeTouchedFromOutsideTheBody) {
    const DevicePicture picture({375, 667});
    EXPECT_EQ(picture.partAt({-8, picture.button(Part::VolumeUp).center().y}), Part::VolumeUp);
    EXPECT_EQ(picture.partAt({picture.bodySize().width + 8, picture.button(Part::Lock).center().y}),
              Part::Lock);
}

TEST(DeviceLayout, MapsTheScreenUprightForEveryInterfaceOrientation) {
    const DevicePicture picture({375, 667});
    const toolkit::Rect screen = picture.screen();
    // Where the interface's top left corner lies on the body.
    expectNear(DeviceLayout::screenToBody(picture, 1).apply(Point{0, 0}), {screen.x, screen.y});
    expectNear(DeviceLayout::screenToBody(picture, 2).apply(Point{0, 0}), {screen.maxX(), screen.maxY()});
    expectNear(DeviceLayout::screenToBody(picture, 3).apply(Point{0, 0}), {screen.maxX(), screen.y});
    expectNear(DeviceLayout::screenToBody(picture, 4).apply(Point{0, 0}), {screen.x, screen.maxY()});
    expectNear(DeviceLayout::screenToBody(picture, 3).apply(Point{667, 375}), {screen.x, screen.maxY()});
}

TEST(DeviceLayout, ShowsAnInterfaceThatFollowedTheRotationUpright) {
    const DevicePicture picture({375, 667});
    for (int orientation = 1; orientation <= 4; ++orientation) {
        const double angle = *DeviceLayout::angleOf(DeviceOrientation{orientation});
        const auto layout = DeviceLayout::fit(picture, {{1000, 1000}, angle, angle, 1, 2});
        const auto map = DeviceLayout::screenToBody(picture, orientation).then(layout.bodyToArea);
        const Point origin = map.apply(Point{0, 0}), right = map.apply(Point{10, 0}),
                    down = map.apply(Point{0, 10});
        EXPECT_GT(right.x, origin.x) << orientation;
        EXPECT_NEAR(right.y, origin.y, 1e-9) << orientation;
        EXPECT_GT(down.y, origin.y) << orientation;
        EXPECT_NEAR(down.x, origin.x, 1e-9) << orientation;
    }
}

TEST(DeviceLayout, TurnsTheHomeButtonToTheRightForLandscapeLeft) {
    const DevicePicture picture({375, 667});
    const double angle = *DeviceLayout::angleOf(DeviceOrientation::LandscapeLeft);
    const auto layout = DeviceLayout::fit(picture, {{1200, 600}, angle, angle, 1, 2});
    EXPECT_GT(layout.bodyToArea.apply(picture.button(Part::Home).center()).x, 900);
}

TEST(DeviceLayout, HasNoAngleForAPhoneThatLiesFlat) {
    EXPECT_FALSE(DeviceLayout::angleOf(DeviceOrientation::FaceUp));
    EXPECT_FALSE(DeviceLayout::angleOf(DeviceOrientation::FaceDown));
    EXPECT_FALSE(DeviceLayout::angleOf(DeviceOrientation::Unknown));
}

TEST(DeviceLayout, KeepsThePictureWithinItsArea) {
    const DevicePicture picture({375, 667});
    for (const double angle : {0.0, quarter, -quarter, 2 * quarter})
        for (const toolkit::Size area : {toolkit::Size{400, 800}, {1600, 500}, {90, 2000}, {3000, 3000}}) {
            const auto layout = DeviceLayout::fit(picture, {area, angle, angle, 1, 2});
            const auto body = layout.bodyToArea.apply(toolkit::Rect({}, picture.bodySize()));
            EXPECT_GE(body.x, 0);
            EXPECT_GE(body.y, 0);
            EXPECT_LE(body.maxX(), area.width);
            EXPECT_LE(body.maxY(), area.height);
        }
}

TEST(DeviceLayout, MakesScreenPixelsWholeWhereItNearlyFits) {
    const DevicePicture picture({375, 667});
    const double height = picture.bodySize().height + 2 * DevicePicture::margin;
    // One point a unit, two pixels a point: half a pixel a unit.
    EXPECT_EQ(DeviceLayout::fit(picture, {{2000, height * 1.1}, 0, 0, 1, 2}).scale, 1);
    EXPECT_EQ(DeviceLayout::fit(picture, {{2000, height * 1.1}, 0, 0, 2, 2}).scale, 1);
    EXPECT_EQ(DeviceLayout::fit(picture, {{4000, height * 2.1}, 0, 0, 1, 2}).scale, 2);
    EXPECT_EQ(DeviceLayout::fit(picture, {{2000, height * 0.98}, 0, 0, 1, 2}).scale, 1);
    EXPECT_EQ(DeviceLayout::fit(picture, {{4000, height * 1.98}, 0, 0, 1, 2}).scale, 2);
    EXPECT_NEAR(DeviceLayout::fit(picture, {{2000, height * 1.3}, 0, 0, 1, 2}).scale, 1.3, 1e-9);
    EXPECT_NEAR(DeviceLayout::fit(picture, {{2000, height * 0.7}, 0, 0, 1, 2}).scale, 0.7, 1e-9);
}

TEST(DeviceLayout, PutsTheScreensCornerOnAPixel) {
    const DevicePicture picture({375, 667});
    const auto layout = DeviceLayout::fit(picture, {{1001, 901}, 0, 0, 2, 2});
    const Point corner = layout.bodyToArea.apply(picture.screen().origin());
    EXPECT_NEAR(corner.x * 2, std::round(corner.x * 2), 1e-9);
    EXPECT_NEAR(corner.y * 2, std::round(corner.y * 2), 1e-9);
}

TEST(DeviceLayout, SurvivesAnAreaWithoutRoom) {
    const DevicePicture picture({375, 667});
    const auto layout = DeviceLayout::fit(picture, {{0, 0}, 0, 0, 1, 2});
    EXPECT_GT(layout.scale, 0);
}

} // namespace
} // namespace phone
