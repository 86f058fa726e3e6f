#include "platform/toolkit/layers/Compositor.h"

#include "platform/toolkit/animation/Animation.h"
#include "tests/support/ToolkitTest.h"
#include "tests/toolkit/layers/LayerScene.h"
#include "tests/toolkit/rendering/PixelTesting.h"

#include <cmath>
#include <numbers>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Pixel black{0, 0, 0, 255};
constexpr Pixel opaqueRed{255, 0, 0, 255};
constexpr Pixel opaqueBlue{0, 0, 255, 255};

class CompositorTest : public support::ToolkitTest {
protected:
    Compositor::Frame compose() { return compositor.compose(roots, size, scale); }
    /// In points.
    Pixel at(double x, double y) const {
        return pixelAt(*compositor.image(), static_cast<int>(x * scale), static_cast<int>(y * scale));
    }
    std::shared_ptr<Layer> addRoot(Rect frame, std::optional<Color> background = std::nullopt) {
        roots.push_back(makeLayer(frame, background));
        return roots.back();
    }
    static std::shared_ptr<Layer> addTo(Layer& parent, Rect frame,
                                        std::optional<Color> background = std::nullopt) {
        auto layer = makeLayer(frame, background);
        parent.addSublayer(layer);
        return layer;
    }

    Compositor compositor;
    std::vector<std::shared_ptr<Layer>> roots;
    Size size{100, 80};
    double scale = 2;
};

TEST_F(CompositorTest, HasNoPictureBeforeTheFirstFrame) {
    EXPECT_EQ(compositor.image(), nullptr);
    EXPECT_EQ(compositor.pixelWidth(), 0);
    EXPECT_EQ(compositor.paintedFrames(), 0u);
}

TEST_F(CompositorTest, PaintsTheWholeScreenAtFirst) {
    EXPECT_THAT(compose().damage, ElementsAre(Rect{0, 0, 200, 160}));
    EXPECT_EQ(compositor.pixelWidth(), 200);
    EXPECT_EQ(compositor.pixelHeight(), 160);
    EXPECT_EQ(at(50, 50), black);
    EXPECT_EQ(compositor.paintedFrames(), 1u);
}

TEST_F(CompositorTest, PaintsNothingWhenNothingChanged) {
    addRoot({0, 0, 100, 80}, red());
    compose();
    const auto frame = compose();
    EXPECT_THAT(frame.damage, IsEmpty());
    EXPECT_EQ(frame.paintedPixels(), 0);
    EXPECT_EQ(compositor.paintedFrames(), 1u);
}

TEST_F(CompositorTest, PaintsOnlyWhereALayerWasAndIs) {
    auto root = addRoot({0, 0, 100, 80}, white());
    auto moving = addTo(*root, {10, 10, 5, 5}, red());
    compose();
    moving->setPosition({80, 60});
    EXPECT_THAT(compose().damage,
                testing::UnorderedElementsAre(Rect{20, 20, 10, 10}, Rect{160, 120, 10, 10}));
    EXPECT_EQ(at(12, 12), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(at(82, 62), opaqueRed);
}

TEST_F(CompositorTest, ChangesOutsideTheScreenDamageNothing) {
    auto away = addRoot({200, 0, 50, 50}, red());
    compose();
    away->setPosition({300, 0});
    away->setBackgroundColor(blue());
    EXPECT_THAT(compose().damage, IsEmpty());
}

TEST_F(CompositorTest, PaintsWhatARemovedLayerHid) {
    auto root = addRoot({0, 0, 100, 80}, red());
    auto cover = addTo(*root, {10, 10, 20, 20}, blue());
    compose();
    cover->removeFromSuperlayer();
    EXPECT_THAT(compose().damage, ElementsAre(Rect{20, 20, 40, 40}));
    EXPECT_EQ(at(15, 15), opaqueRed);
}

TEST_F(CompositorTest, PaintsLayersThatChangedPlaces) {
    auto root = addRoot({0, 0, 100, 80});
    auto first = addTo(*root, {0, 0, 50, 50}, red());
    auto second = addTo(*root, {25, 25, 50, 50}, blue());
    compose();
    EXPECT_EQ(at(30, 30), opaqueBlue);
    root->insertSublayer(first, 1);
    compose();
    EXPECT_EQ(at(30, 30), opaqueRed);
}

TEST_F(CompositorTest, ComposesAfreshForAnotherSizeOrScale) {
    addRoot({0, 0, 100, 80}, red());
    compose();
    scale = 3;
    EXPECT_THAT(compose().damage, ElementsAre(Rect{0, 0, 300, 240}));
    EXPECT_EQ(at(99, 79), opaqueRed);
    std::swap(size.width, size.height);
    EXPECT_THAT(compose().damage, ElementsAre(Rect{0, 0, 240, 300}));
    EXPECT_EQ(at(79, 99), black);
}

TEST_F(CompositorTest, SurvivesAbsurdScreensAndLayers) {
    auto root = addRoot({-1e300, -1e300, 1e301, 1e301}, red());
    addTo(*root, {std::nan(""), 0, 5, 5}, blue());
    addTo(*root, {0, 0, std::nan(""), 5}, blue());
    auto flat = addTo(*root, {0, 0, 5, 5}, blue());
    flat->setTransform(AffineTransform::scale(0, 1));
    flat->setShadow({Color::black(), 1, 1e300, {0, 0}});
    for (const double extreme : {std::nan(""), 0.0, -1.0, 1e-9})
        compositor.compose(roots, {100, 80}, extreme);
    compositor.compose(roots, {-5, std::nan("")}, 2);
    EXPECT_EQ(compositor.pixelWidth(), 1);
    EXPECT_EQ(compositor.pixelHeight(), 1);
    compose();
    EXPECT_EQ(compositor.pixelWidth(), 200);
}

TEST_F(CompositorTest, TreatsOpacityOutsideItsRangeAsItsEnds) {
    auto layer = addRoot({0, 0, 100, 80}, red());
    layer->setOpacity(-1);
    compose();
    EXPECT_EQ(at(5, 5), black);
    layer->setOpacity(7);
    compose();
    EXPECT_EQ(at(5, 5), opaqueRed);
    layer->setHidden(true);
    compose();
    EXPECT_EQ(at(5, 5), black);
}

TEST_F(CompositorTest, FadesATreeAsOne) {
    auto parent = addRoot({0, 0, 100, 80}, red());
    addTo(*parent, {0, 0, 50, 80}, red());
    parent->setOpacity(0.5);
    compose();
    EXPECT_EQ(at(25, 40), at(75, 40));
    EXPECT_NEAR(at(25, 40).red, 128, 1);
}

TEST_F(CompositorTest, PutsEdgesOfMovedLayersOnWholePixels) {
    addRoot({10.3, 10.3, 20, 20}, red());
    compose();
    for (int x = 0; x < 200; ++x) {
        const int level = pixelAt(*compositor.image(), x, 40).red;
        ASSERT_EQ(level, x >= 21 && x < 61 ? 255 : 0) << x;
    }
}

TEST_F(CompositorTest, NeverLosesAHairline) {
    scale = 1;
    addRoot({0, 10.2, 100, 0.5}, red());
    compose();
    EXPECT_EQ(at(50, 10), opaqueRed);
    EXPECT_EQ(at(50, 9), black);
    EXPECT_EQ(at(50, 11), black);
}

TEST_F(CompositorTest, LeavesNoGapBetweenNeighbours) {
    scale = 1.5;
    auto root = addRoot({0, 0, 100, 80});
    for (int i = 0; i < 10; ++i)
        addTo(*root, {i * 9.7, 0, 9.7, 80}, white());
    compose();
    for (int x = 0; x < 145; ++x)
        ASSERT_EQ(pixelAt(*compositor.image(), x, 10), (Pixel{255, 255, 255, 255})) << x;
}

TEST_F(CompositorTest, TurnsAndScalesTrees) {
    auto parent = addRoot({50, 40, 20, 20});
    parent->setAnchorPoint({0.5, 0.5});
    parent->setTransform(AffineTransform::rotation(std::numbers::pi / 2).then(AffineTransform::scale(2, 2)));
    addTo(*parent, {0, 0, 20, 10}, red()); // the upper half, which comes to lie on the right
    compose();
    EXPECT_EQ(at(60, 40), opaqueRed);
    EXPECT_EQ(at(68, 25), opaqueRed);
    EXPECT_EQ(at(40, 40), black);
}

TEST_F(CompositorTest, ScrollsByTheOriginOfTheBounds) {
    auto scroller = addRoot({10, 10, 50, 50});
    addTo(*scroller, {0, 100, 50, 10}, red());
    scroller->setBounds({0, 95, 50, 50});
    compose();
    EXPECT_EQ(at(20, 16), opaqueRed);
    EXPECT_EQ(at(20, 14), black);
}

TEST_F(CompositorTest, ClipsSublayersOnlyWhereAsked) {
    auto parent = addRoot({10, 10, 20, 20});
    addTo(*parent, {10, 10, 50, 50}, red());
    compose();
    EXPECT_EQ(at(50, 50), opaqueRed);
    parent->setMasksToBounds(true);
    compose();
    EXPECT_EQ(at(50, 50), black);
    EXPECT_EQ(at(25, 25), opaqueRed);
    parent->setCornerRadius(10);
    compose();
    EXPECT_EQ(at(29.6, 29.6), black);
    EXPECT_EQ(at(22, 22), opaqueRed);
}

TEST_F(CompositorTest, ClipsATurnedTreeToItsTurnedBounds) {
    auto parent = addRoot({50, 40, 20, 20});
    parent->setAnchorPoint({0.5, 0.5});
    parent->setTransform(AffineTransform::rotation(std::numbers::pi / 4));
    parent->setMasksToBounds(true);
    addTo(*parent, {-50, -50, 100, 100}, red());
    compose();
    EXPECT_EQ(at(50, 40), opaqueRed);
    EXPECT_EQ(at(50, 28), opaqueRed); // a corner points up
    EXPECT_EQ(at(42, 32), black);     // the upright square's corner
}

TEST_F(CompositorTest, DrawsContentOnceAndKeepsIt) {
    DrawnContent content([](Canvas& canvas, Rect bounds) { canvas.fillRect(bounds, red()); });
    auto layer = addRoot({10, 10, 20, 20});
    layer->setDelegate(&content);
    compose();
    EXPECT_EQ(at(15, 15), opaqueRed);
    for (int i = 0; i < 5; ++i) {
        layer->setPosition({10.0 + i, 10});
        compose();
    }
    EXPECT_EQ(content.drawings, 1);
    layer->setNeedsDisplay();
    compose();
    EXPECT_EQ(content.drawings, 2);
    layer->setBounds({0, 0, 30, 20});
    compose();
    EXPECT_EQ(content.drawings, 3);
    layer->setBounds({0, 7, 30, 20}); // only scrolled
    compose();
    EXPECT_EQ(content.drawings, 3);
    scale = 3;
    compose();
    EXPECT_EQ(content.drawings, 4);
    layer->setDelegate(nullptr);
}

TEST_F(CompositorTest, DoesNotDrawContentThatNobodySees) {
    DrawnContent content([](Canvas&, Rect) {});
    auto layer = addRoot({500, 10, 20, 20});
    layer->setDelegate(&content);
    compose();
    EXPECT_EQ(content.drawings, 0);
    layer->setDelegate(nullptr);
}

TEST_F(CompositorTest, DrawsContentInTheLayersOwnCoordinates) {
    DrawnContent content([](Canvas& canvas, Rect bounds) {
        EXPECT_EQ(bounds, (Rect{5, 50, 20, 20}));
        canvas.fillRect({5, 50, 2, 2}, red());
    });
    auto layer = addRoot({10, 10, 20, 20});
    layer->setBounds({5, 50, 20, 20});
    layer->setDelegate(&content);
    compose();
    EXPECT_EQ(at(11, 11), opaqueRed);
    EXPECT_EQ(at(13, 13), black);
    layer->setDelegate(nullptr);
}

TEST_F(CompositorTest, DrawsAnEnormousContentDirectly) {
    DrawnContent content([](Canvas& canvas, Rect) { canvas.fillRect({0, 49'990, 10, 30}, red()); });
    auto scroller = addRoot({0, 0, 100, 80});
    auto layer = addTo(*scroller, {0, 0, 100, 100'000});
    layer->setDelegate(&content);
    scroller->setBounds({0, 49'980, 100, 80});
    compose();
    EXPECT_EQ(at(5, 15), opaqueRed);
    EXPECT_EQ(at(5, 5), black);
    EXPECT_EQ(at(5, 45), black);
    layer->setDelegate(nullptr);
}

TEST_F(CompositorTest, ShowsPicturesByTheirGravity) {
    const auto picture = Image::draw({20, 10}, 1, [](Canvas& canvas) {
        canvas.fillRect({0, 0, 20, 10}, red());
    });
    auto layer = addRoot({10, 10, 40, 40});
    layer->setContents(picture);
    const auto shownRows = [&](ContentGravity gravity) {
        layer->setContentGravity(gravity);
        compose();
        std::pair<int, int> rows{0, -1};
        for (int y = 79; y >= 0; --y)
            if (at(30, y).red > 0)
                rows = {y, rows.second < 0 ? y : rows.second};
        return rows;
    };
    EXPECT_EQ(shownRows(ContentGravity::Resize), (std::pair{10, 49}));
    EXPECT_EQ(shownRows(ContentGravity::AspectFit), (std::pair{20, 39}));
    EXPECT_EQ(shownRows(ContentGravity::AspectFill), (std::pair{10, 49}));
    EXPECT_EQ(shownRows(ContentGravity::Center), (std::pair{25, 34}));
    layer->setContentGravity(ContentGravity::AspectFill);
    compose();
    EXPECT_EQ(at(5, 30), opaqueRed); // wider than its bounds
    layer->setMasksToBounds(true);
    compose();
    EXPECT_EQ(at(5, 30), black);
}

TEST_F(CompositorTest, DrawsBordersOverSublayersAndShadowsBeneath) {
    auto layer = addRoot({20, 20, 40, 40}, white());
    addTo(*layer, {0, 0, 40, 40}, red());
    layer->setBorder(4, blue());
    layer->setShadow({white(), 1, 4, {0, 0}});
    compose();
    EXPECT_EQ(at(22, 30), opaqueBlue);
    EXPECT_EQ(at(25, 30), opaqueRed);
    EXPECT_GT(at(18, 40).red, 50);
    EXPECT_EQ(at(5, 40), black);
    layer->setMasksToBounds(true); // takes the shadow away too
    compose();
    EXPECT_EQ(at(18, 40), black);
}

TEST_F(CompositorTest, FadesATreeByItsMask) {
    auto layer = addRoot({0, 0, 100, 80}, red());
    addTo(*layer, {0, 0, 50, 80}, red());
    layer->setMask(GradientMask{{0, 0, 100, 40},
                                {0, 20},
                                {0.5, 0},
                                {0.5, 1},
                                {{0, Color::clear()}, {0.5, Color::black()}, {1, Color::black()}}});
    compose();
    EXPECT_EQ(at(25, 10), black);
    EXPECT_NEAR(at(25, 30).red, 131, 3);
    EXPECT_EQ(at(25, 30), at(75, 30));
    EXPECT_EQ(at(25, 50), opaqueRed);
    EXPECT_EQ(at(25, 65), black);
}

TEST_F(CompositorTest, KeepsTheMaskStillWhileScrolledUnderIt) {
    auto scroller = addRoot({0, 0, 100, 80});
    auto inside = addTo(*scroller, {0, 0, 100, 1000}, red());
    GradientMask mask{
        {0, 0, 100, 80}, {0, 0}, {0.5, 0}, {0.5, 1}, {{0, Color::clear()}, {1, Color::black()}}};
    scroller->setMask(mask);
    compose();
    const Pixel before = at(50, 40);
    scroller->setBounds({0, 300, 100, 80});
    mask.position = {0, 300};
    scroller->setMask(mask);
    compose();
    EXPECT_EQ(at(50, 40), before);
    EXPECT_NEAR(before.red, 128, 2);
}

TEST_F(CompositorTest, BlursWhatLiesBeneathGlass) {
    auto beneath = addRoot({0, 0, 50, 80}, white());
    auto glass = addRoot({0, 0, 100, 80});
    glass->setBackdrop(BackdropStyle::Light);
    compose();
    EXPECT_GT(at(5, 40).red, at(45, 40).red);
    EXPECT_GT(at(45, 40).red, at(55, 40).red);
    EXPECT_GT(at(55, 40).red, at(95, 40).red);
}

TEST_F(CompositorTest, PaintsAllOfTheGlassWhenAnythingBeneathItChanges) {
    addRoot({0, 0, 100, 80}, white());
    auto beneath = addRoot({30, 30, 10, 10}, red());
    auto glass = addRoot({10, 10, 60, 50});
    glass->setBackdrop(BackdropStyle::Dark);
    compose();
    beneath->setBackgroundColor(blue());
    EXPECT_THAT(compose().damage, ElementsAre(Rect{20, 20, 120, 100}));
}

TEST_F(CompositorTest, LeavesTheGlassAloneWhenSomethingAboveItChanges) {
    addRoot({0, 0, 100, 80}, white());
    auto glass = addRoot({10, 10, 60, 50});
    glass->setBackdrop(BackdropStyle::Dark);
    auto above = addTo(*glass, {20, 20, 10, 10}, red());
    compose();
    above->setBackgroundColor(blue());
    EXPECT_THAT(compose().damage, ElementsAre(Rect{60, 60, 20, 20}));
    above->removeFromSuperlayer();
    EXPECT_THAT(compose().damage, ElementsAre(Rect{60, 60, 20, 20}));
}

TEST_F(CompositorTest, ShowsAnimationsAndShapesAsTheyRun) {
    auto bar = std::make_shared<BarLayer>();
    bar->setAnchorPoint({0, 0});
    bar->setBounds({0, 0, 100, 80});
    roots.push_back(bar);
    auto moving = addRoot({0, 0, 10, 10}, red());
    bar->addAnimation("stroke", {LayerProperty::StrokeEnd, 0.0, 1.0, 1, AnimationCurve::Linear, 1});
    AnimationEngine::shared().animate(1, 0, AnimationCurve::Linear,
                                      [&] {
                                          moving->setPosition({80, 0});
                                      },
                                      {});
    compose();
    EXPECT_EQ(at(5, 5), opaqueRed);
    loop.advance(0.5);
    EXPECT_FALSE(compose().damage.empty());
    EXPECT_EQ(at(45, 5), opaqueRed);
    EXPECT_EQ(at(45, 70), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(at(55, 70), black);
    loop.advance(1);
    compose();
    EXPECT_EQ(at(85, 5), opaqueRed);
    EXPECT_EQ(at(95, 70), (Pixel{0, 255, 0, 255}));
    EXPECT_THAT(compose().damage, IsEmpty());
}

TEST_F(CompositorTest, StretchesContentWhileItsBoundsAreAnimated) {
    DrawnContent content([](Canvas& canvas, Rect bounds) {
        canvas.fillRect({0, 0, bounds.width / 2, bounds.height}, red());
        canvas.fillRect({bounds.width / 2, 0, bounds.width / 2, bounds.height}, blue());
    });
    auto layer = addRoot({0, 0, 20, 20});
    layer->setDelegate(&content);
    compose();
    AnimationEngine::shared().animate(1, 0, AnimationCurve::Linear,
                                      [&] {
                                          layer->setBounds({0, 0, 60, 20});
                                      },
                                      {});
    for (int i = 0; i < 9; ++i) {
        loop.advance(0.1);
        compose();
    }
    EXPECT_LE(content.drawings, 2);
    EXPECT_EQ(at(10, 10), opaqueRed);
    EXPECT_EQ(at(45, 10), opaqueBlue);
    layer->setDelegate(nullptr);
}

} // namespace
} // namespace toolkit
