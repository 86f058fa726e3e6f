#include "platform/toolkit/layers/Layer.h"
#include "platform/toolkit/layers/LayerAnimations.h"
#include "tests/support/ToolkitTest.h"

#include <numbers>

namespace toolkit {
namespace {

using testing::DoubleNear;

class LayerTest : public support::ToolkitTest {
protected:
    static std::shared_ptr<Layer> layer(Rect frame) {
        auto made = std::make_shared<Layer>();
        made->setBounds({0, 0, frame.width, frame.height});
        made->setPosition(frame.center());
        return made;
    }
    /// How much the count of changes grows when `change` is made.
    template <class Change>
    static std::uint64_t growth(Change change) {
        const auto before = Layer::changeCount();
        change();
        return Layer::changeCount() - before;
    }
};

TEST_F(LayerTest, MapsItsCornersToTheParent) {
    const auto plain = layer({10, 20, 100, 50});
    EXPECT_EQ(plain->toParent().apply(Point{0, 0}), (Point{10, 20}));
    EXPECT_EQ(plain->toParent().apply(Point{100, 50}), (Point{110, 70}));
}

TEST_F(LayerTest, ScrollsWithTheOriginOfItsBounds) {
    const auto scrolled = layer({10, 20, 100, 50});
    scrolled->setBounds({0, 300, 100, 50});
    EXPECT_EQ(scrolled->toParent().apply(Point{0, 300}), (Point{10, 20}));
}

TEST_F(LayerTest, TurnsAboutItsMiddle) {
    const auto turned = layer({0, 0, 100, 50});
    turned->setTransform(AffineTransform::rotation(std::numbers::pi / 2));
    EXPECT_EQ(turned->toParent().apply(Point{50, 25}), (Point{50, 25}));
    EXPECT_EQ(turned->toParent().apply(Point{0, 0}), (Point{75, -25}));
    EXPECT_EQ(turned->toParent().apply(turned->bounds()), (Rect{25, -25, 50, 100}));
}

TEST_F(LayerTest, TurnsAboutItsAnchorPoint) {
    const auto turned = layer({0, 0, 100, 50});
    turned->setAnchorPoint({0, 0});
    turned->setPosition({0, 0});
    turned->setTransform(AffineTransform::rotation(std::numbers::pi / 2));
    EXPECT_EQ(turned->toParent().apply(Point{100, 50}), (Point{-50, 100}));
}

TEST_F(LayerTest, ScrollsBeforeItIsTransformed) {
    const auto scaled = layer({0, 0, 100, 100});
    scaled->setTransform(AffineTransform::scale(2, 2));
    scaled->setBounds({0, 40, 100, 100});
    EXPECT_EQ(scaled->toParent().apply(Point{50, 90}), (Point{50, 50}));
    EXPECT_EQ(scaled->toParent().apply(Point{0, 40}), (Point{-50, -50}));
}

TEST_F(LayerTest, CountsEveryVisibleChange) {
    const auto one = layer({0, 0, 10, 10});
    EXPECT_EQ(growth([&] { one->setBounds({0, 0, 20, 10}); }), 1u);
    EXPECT_EQ(growth([&] { one->setPosition({1, 1}); }), 1u);
    EXPECT_EQ(growth([&] { one->setAnchorPoint({0, 0}); }), 1u);
    EXPECT_EQ(growth([&] { one->setTransform(AffineTransform::scale(2, 2)); }), 1u);
    EXPECT_EQ(growth([&] { one->setOpacity(0.5); }), 1u);
    EXPECT_EQ(growth([&] { one->setHidden(true); }), 1u);
    EXPECT_EQ(growth([&] { one->setBackgroundColor(Color::black()); }), 1u);
    EXPECT_EQ(growth([&] { one->setCornerRadius(4); }), 1u);
    EXPECT_EQ(growth([&] { one->setMasksToBounds(true); }), 1u);
    EXPECT_EQ(growth([&] { one->setBorder(1, Color::black()); }), 1u);
    EXPECT_EQ(growth([&] { one->setShadow({Color::black(), 1, 3, {}}); }), 1u);
    EXPECT_EQ(growth([&] { one->setMask(GradientMask{}); }), 1u);
    EXPECT_EQ(growth([&] { one->setBackdrop(BackdropStyle::Dark); }), 1u);
    EXPECT_EQ(growth([&] { one->setGroupBlend(GroupBlend::VibrancyDark); }), 1u);
    EXPECT_EQ(growth([&] { one->setContentGravity(ContentGravity::Center); }), 1u);
    EXPECT_EQ(growth([&] { one->setNeedsDisplay(); }), 1u);
    const auto two = std::make_shared<Layer>();
    EXPECT_EQ(growth([&] { one->addSublayer(two); }), 1u);
    EXPECT_EQ(growth([&] { two->removeFromSuperlayer(); }), 1u);
}

TEST_F(LayerTest, CountsNoChangeWhenASetterGetsTheValueThatIsThere) {
    const auto one = layer({0, 0, 10, 10});
    one->setBackgroundColor(Color::black());
    EXPECT_EQ(growth([&] {
                  one->setBounds(one->bounds());
                  one->setPosition(one->position());
                  one->setAnchorPoint(one->anchorPoint());
                  one->setTransform(one->transform());
                  one->setOpacity(1);
                  one->setHidden(false);
                  one->setBackgroundColor(Color::black());
                  one->setCornerRadius(0);
                  one->setMasksToBounds(false);
                  one->setBorder(0, one->borderColor());
                  one->setShadow(one->shadow());
                  one->setMask({});
                  one->setBackdrop({});
                  one->setContents(nullptr);
                  one->removeFromSuperlayer();
              }),
              0u);
}

TEST_F(LayerTest, KeepsItsPictureThroughAMoveButNotThroughAChangeOfSize) {
    const auto one = layer({0, 0, 10, 10});
    const auto version = one->contentVersion();
    one->setPosition({50, 50});
    one->setBounds({0, 7, 10, 10});
    EXPECT_EQ(one->contentVersion(), version);
    one->setBounds({0, 7, 10, 11});
    EXPECT_NE(one->contentVersion(), version);
}

TEST_F(LayerTest, KeepsTheOrderOfItsSublayers) {
    const auto parent = std::make_shared<Layer>();
    const auto a = std::make_shared<Layer>(), b = std::make_shared<Layer>(), c = std::make_shared<Layer>();
    parent->addSublayer(a);
    parent->addSublayer(b);
    parent->insertSublayer(c, 1);
    EXPECT_THAT(parent->sublayers(), testing::ElementsAre(a, c, b));
    parent->addSublayer(a);
    EXPECT_THAT(parent->sublayers(), testing::ElementsAre(c, b, a));
    const auto other = std::make_shared<Layer>();
    other->insertSublayer(b, 99);
    EXPECT_THAT(parent->sublayers(), testing::ElementsAre(c, a));
    EXPECT_EQ(b->superlayer(), other.get());
}

TEST_F(LayerTest, LeavesItsSublayersWithoutAParentWhenItGoes) {
    const auto child = std::make_shared<Layer>();
    {
        const auto parent = std::make_shared<Layer>();
        parent->addSublayer(child);
    }
    EXPECT_EQ(child->superlayer(), nullptr);
    child->removeFromSuperlayer();
}

TEST_F(LayerTest, ShowsARotationThatIsAnimatedByKey) {
    const auto one = layer({0, 0, 100, 100});
    one->addAnimation("turn", {LayerProperty::Rotation, 0.0, 2 * std::numbers::pi, 1, AnimationCurve::Linear,
                               std::numeric_limits<double>::infinity()});
    loop.advance(3.25);
    const Point corner = one->presentedToParent().apply(Point{0, 0});
    EXPECT_THAT(corner.x, DoubleNear(100, 1e-9));
    EXPECT_THAT(corner.y, DoubleNear(0, 1e-9));
    EXPECT_EQ(one->toParent().apply(Point{0, 0}), (Point{0, 0}));
}

} // namespace
} // namespace toolkit
