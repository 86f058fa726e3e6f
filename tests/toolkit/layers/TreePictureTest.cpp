#include "platform/toolkit/layers/TreePicture.h"

#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/layers/ShapeLayer.h"

#include <gmock/gmock.h>

using namespace toolkit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class TreePictureTest : public testing::Test {
protected:
    TreePictureTest() {
        foundation::RunLoop::setMain(&loop);
        place(*root, {100, 20, 80, 60});
        root->setMasksToBounds(true);
    }
    ~TreePictureTest() override { foundation::RunLoop::setMain(nullptr); }

    static void place(Layer& layer, Rect frame) {
        layer.setBounds({0, 0, frame.width, frame.height});
        layer.setPosition(frame.center());
    }
    std::shared_ptr<Layer> addSquare(Rect frame, Color color) {
        auto layer = std::make_shared<Layer>();
        place(*layer, frame);
        layer->setBackgroundColor(color);
        root->addSublayer(layer);
        return layer;
    }
    std::uint32_t pixel(int x, int y) const {
        const Compositor& painted = picture.picture();
        return reinterpret_cast<const std::uint32_t*>(painted.pixels() + y * painted.bytesPerRow())[x];
    }

    foundation::VirtualRunLoop loop;
    std::shared_ptr<Layer> root = std::make_shared<Layer>();
    TreePicture picture;
};

TEST_F(TreePictureTest, AnEmptyTreeCannotBeSeen) {
    picture.update(root, 2);
    EXPECT_FALSE(picture.look().isVisible());
}

TEST_F(TreePictureTest, AColourNeedsNoPicture) {
    root->setBackgroundColor(Color::white(0, 0.6));
    picture.update(root, 2);
    EXPECT_EQ(picture.look().frame, Rect(100, 20, 80, 60));
    EXPECT_EQ(picture.look().color, Color::white(0, 0.6));
    EXPECT_TRUE(picture.look().content.isEmpty());
    EXPECT_THAT(picture.painted().damage, IsEmpty());
}

TEST_F(TreePictureTest, GlassAtTheBottomNeedsNoPicture) {
    auto glass = std::make_shared<Layer>();
    place(*glass, {0, 0, 80, 60});
    glass->setBackdrop(BackdropStyle::Dark);
    root->addSublayer(glass);
    picture.update(root, 2);
    EXPECT_EQ(picture.look().glass, BackdropStyle::Dark);
    EXPECT_TRUE(picture.look().content.isEmpty());
}

TEST_F(TreePictureTest, GlassOverSomethingElseIsPainted) {
    addSquare({0, 0, 20, 20}, Color::white(1));
    auto glass = std::make_shared<Layer>();
    place(*glass, {0, 0, 80, 60});
    glass->setBackdrop(BackdropStyle::Dark);
    root->addSublayer(glass);
    picture.update(root, 1);
    EXPECT_FALSE(picture.look().glass);
    EXPECT_EQ(picture.look().content, Rect(0, 0, 80, 60));
}

TEST_F(TreePictureTest, PaintsTheRestWhereItLies) {
    root->setBackgroundColor(Color::white(1));
    addSquare({10, 20, 30, 5}, Color::rgba(1, 0, 0));
    picture.update(root, 2);
    EXPECT_EQ(picture.look().content, Rect(10, 20, 30, 5));
    EXPECT_EQ(picture.picture().pixelWidth(), 60);
    EXPECT_EQ(picture.picture().pixelHeight(), 10);
    EXPECT_EQ(pixel(0, 0), 0xFFFF0000u);
}

TEST_F(TreePictureTest, WhatIsNotPaintedIsClear) {
    addSquare({0, 0, 10, 10}, Color::white(1));
    addSquare({20, 0, 10, 10}, Color::white(1));
    picture.update(root, 1);
    EXPECT_EQ(pixel(15, 5), 0u);
}

TEST_F(TreePictureTest, MovingTheTreePaintsNothing) {
    addSquare({10, 20, 30, 5}, Color::white(1));
    picture.update(root, 2);
    place(*root, {40, 20, 80, 60});
    picture.update(root, 2);
    EXPECT_EQ(picture.look().frame, Rect(40, 20, 80, 60));
    EXPECT_THAT(picture.painted().damage, IsEmpty());
}

TEST_F(TreePictureTest, FadingTheTreePaintsNothing) {
    root->setBackgroundColor(Color::white(0, 0.6));
    addSquare({10, 20, 30, 5}, Color::white(1));
    picture.update(root, 2);
    root->setOpacity(0.5);
    picture.update(root, 2);
    EXPECT_EQ(picture.look().opacity, 0.5);
    EXPECT_EQ(picture.look().color, Color::white(0, 0.6));
    EXPECT_THAT(picture.painted().damage, IsEmpty());
}

TEST_F(TreePictureTest, OpacityBeyondItsRangeIsHeldWithin) {
    root->setBackgroundColor(Color::white(0));
    root->setOpacity(-0.5);
    picture.update(root, 2);
    EXPECT_EQ(picture.look().opacity, 0);
    EXPECT_FALSE(picture.look().isVisible());
}

TEST_F(TreePictureTest, AMarkThatMovesWithinAGrowingTreeIsNotPaintedAgain) {
    root->setBackgroundColor(Color::white(0, 0.6));
    const auto mark = addSquare({66, 20, 14, 20}, Color::white(1));
    picture.update(root, 2);
    place(*root, {100, 20, 120, 60});
    place(*mark, {106, 20, 14, 20});
    picture.update(root, 2);
    EXPECT_EQ(picture.look().content, Rect(106, 20, 14, 20));
    EXPECT_THAT(picture.painted().damage, IsEmpty());
}

TEST_F(TreePictureTest, PaintsOnlyWhatChanged) {
    const auto square = addSquare({0, 0, 10, 10}, Color::white(1));
    addSquare({70, 50, 10, 10}, Color::white(1));
    picture.update(root, 1);
    square->setBackgroundColor(Color::rgba(1, 0, 0));
    picture.update(root, 1);
    EXPECT_THAT(picture.painted().damage, ElementsAre(Rect(0, 0, 10, 10)));
}

TEST_F(TreePictureTest, KeepsThePicturesPlaceWhileTheTreeKeepsItsSize) {
    addSquare({0, 0, 10, 10}, Color::white(1));
    const auto square = addSquare({70, 50, 10, 10}, Color::white(1));
    picture.update(root, 1);
    square->setHidden(true);
    picture.update(root, 1);
    EXPECT_EQ(picture.look().content, Rect(0, 0, 80, 60));
    EXPECT_THAT(picture.painted().damage, ElementsAre(Rect(70, 50, 10, 10)));
}

TEST_F(TreePictureTest, ContentLiesOnWholePointsAtAnyScale) {
    addSquare({10.4, 20.4, 30, 5}, Color::white(1));
    picture.update(root, 1.5);
    EXPECT_EQ(picture.look().content, Rect(10, 20, 31, 6));
    EXPECT_EQ(picture.picture().pixelWidth(), 47);
}

/// What a shape may touch ends between pixels, now just before the picture's last one and now just after it.
TEST_F(TreePictureTest, AShapeEndsWithThePictureWhereverItLies) {
    auto shape = std::make_shared<ShapeLayer>();
    root->addSublayer(shape);
    const auto square = addSquare({10, 10, 6, 6}, Color::white(1));
    for (double side = 4; side < 9; side += 0.25) {
        shape->setPath(Path::ellipse({0, 0, side, side}));
        for (double x = 19; x < 23; x += 0.25) {
            place(*shape, {x, x, side, side});
            TreePicture fresh;
            square->setBackgroundColor(Color::white(1));
            fresh.update(root, 1.25);
            square->setBackgroundColor(Color::rgba(1, 0, 0));
            fresh.update(root, 1.25);
            const auto& damage = fresh.painted().damage;
            ASSERT_THAT(damage, SizeIs(1));
            EXPECT_LE(damage[0].maxX(), fresh.picture().pixelWidth());
            EXPECT_LE(damage[0].maxY(), fresh.picture().pixelHeight());
        }
    }
}

} // namespace
