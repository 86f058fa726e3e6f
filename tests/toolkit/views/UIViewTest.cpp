#include "platform/toolkit/views/UIView.h"
#include "platform/toolkit/views/UIViewController.h"
#include "tests/support/ToolkitTest.h"

#include <numbers>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double quarterTurn = std::numbers::pi / 2;

class UIViewTest : public support::ToolkitTest {
protected:
    static std::shared_ptr<UIView> view(Rect frame) { return std::make_shared<UIView>(frame); }
    static std::vector<Layer*> layers(const UIView& parent) {
        std::vector<Layer*> found;
        for (const auto& layer : parent.layer()->sublayers())
            found.push_back(layer.get());
        return found;
    }
};

// ---- Geometry

TEST_F(UIViewTest, KeepsItsFrameAsMiddleAndSize) {
    const auto one = view({10, 20, 100, 50});
    EXPECT_EQ(one->center(), (Point{60, 45}));
    EXPECT_EQ(one->bounds(), (Rect{0, 0, 100, 50}));
    EXPECT_EQ(one->frame(), (Rect{10, 20, 100, 50}));
    one->setCenter({0, 0});
    EXPECT_EQ(one->frame(), (Rect{-50, -25, 100, 50}));
    one->setBounds({0, 0, 20, 20});
    EXPECT_EQ(one->frame(), (Rect{-10, -10, 20, 20}));
}

TEST_F(UIViewTest, SwapsWidthAndHeightUnderAQuarterTurn) {
    for (const double angle : {quarterTurn, -quarterTurn}) {
        const auto one = view({0, 0, 15, 568});
        one->setTransform(AffineTransform::rotation(angle));
        EXPECT_EQ(one->frame(), (Rect{-276.5, 276.5, 568, 15}));
        one->setFrame({305, 10, 15, 548});
        EXPECT_EQ(one->bounds(), (Rect{0, 0, 548, 15}));
        EXPECT_EQ(one->center(), (Point{312.5, 284}));
        EXPECT_EQ(one->frame(), (Rect{305, 10, 15, 548}));
    }
}

TEST_F(UIViewTest, TakesTheSizeBackThroughAScale) {
    const auto one = view({0, 0, 10, 10});
    one->setTransform(AffineTransform::scale(0.5, 0.25));
    one->setFrame({100, 100, 50, 50});
    EXPECT_EQ(one->bounds(), (Rect{0, 0, 100, 200}));
    EXPECT_EQ(one->frame(), (Rect{100, 100, 50, 50}));
}

TEST_F(UIViewTest, KeepsTheOriginOfItsBoundsThroughASetFrame) {
    const auto one = view({0, 0, 10, 10});
    one->setBounds({0, 70, 10, 10});
    one->setFrame({5, 5, 20, 20});
    EXPECT_EQ(one->bounds(), (Rect{0, 70, 20, 20}));
}

TEST_F(UIViewTest, CountsGeometryInDoublePrecision) {
    const auto one = view({0.1, 0.2, 1.0 / 3, 1.0 / 7});
    EXPECT_EQ(one->bounds().width, 1.0 / 3);
    EXPECT_DOUBLE_EQ(one->frame().x, 0.1);
}

class FittingView : public UIView {
public:
    using UIView::UIView;
    Size sizeThatFits(Size) const override { return {30, 12}; }
};

TEST_F(UIViewTest, FitsItsContentWithoutMovingItsOrigin) {
    const auto plain = std::make_shared<FittingView>(Rect{10, 20, 100, 100});
    plain->sizeToFit();
    EXPECT_EQ(plain->frame(), (Rect{10, 20, 30, 12}));
    const auto turned = std::make_shared<FittingView>(Rect{0, 0, 10, 10});
    turned->setTransform(AffineTransform::rotation(-quarterTurn));
    turned->setFrame({10, 20, 5, 5});
    turned->sizeToFit();
    EXPECT_EQ(turned->frame(), (Rect{10, 20, 12, 30}));
    const auto unspecific = view({1, 2, 3, 4});
    unspecific->sizeToFit();
    EXPECT_EQ(unspecific->frame(), (Rect{1, 2, 3, 4}));
}

TEST_F(UIViewTest, ConvertsBetweenViewsOfATree) {
    const auto root = view({100, 0, 300, 300}), scrolled = view({10, 10, 100, 100}),
               deep = view({5, 105, 20, 20}), other = view({200, 200, 50, 50});
    root->addSubview(scrolled);
    root->addSubview(other);
    scrolled->setBounds({0, 100, 100, 100});
    scrolled->addSubview(deep);
    EXPECT_EQ(deep->convertPointTo({1, 2}, root.get()), (Point{16, 17}));
    EXPECT_EQ(deep->convertPointTo({1, 2}, nullptr), (Point{116, 17}));
    EXPECT_EQ(deep->convertPointFrom({116, 17}, nullptr), (Point{1, 2}));
    EXPECT_EQ(deep->convertPointTo({1, 2}, other.get()), (Point{-184, -183}));
    EXPECT_EQ(deep->convertPointFrom({-184, -183}, other.get()), (Point{1, 2}));
    EXPECT_EQ(deep->convertPointTo({1, 2}, deep.get()), (Point{1, 2}));
    EXPECT_EQ(deep->convertRectTo({0, 0, 20, 20}, root.get()), (Rect{15, 15, 20, 20}));
}

TEST_F(UIViewTest, ConvertsThroughAQuarterTurn) {
    const auto root = view({0, 0, 320, 568}), turned = view({0, 0, 0, 0});
    root->addSubview(turned);
    turned->setTransform(AffineTransform::rotation(quarterTurn));
    turned->setFrame({0, 0, 320, 568});
    EXPECT_EQ(turned->convertPointTo({0, 0}, root.get()), (Point{320, 0}));
    EXPECT_EQ(turned->convertPointTo({568, 320}, root.get()), (Point{0, 568}));
    EXPECT_EQ(turned->convertRectTo({0, 0, 100, 10}, root.get()), (Rect{310, 0, 10, 100}));
}

// ---- Tree

TEST_F(UIViewTest, KeepsLayersInTheOrderOfTheSubviews) {
    const auto root = view({}), a = view({}), b = view({}), c = view({});
    root->addSubview(a);
    root->addSubview(b);
    root->insertSubview(c, 1);
    EXPECT_THAT(root->subviews(), ElementsAre(a, c, b));
    EXPECT_THAT(layers(*root), ElementsAre(a->layer().get(), c->layer().get(), b->layer().get()));
    root->bringSubviewToFront(*a);
    EXPECT_THAT(root->subviews(), ElementsAre(c, b, a));
    EXPECT_THAT(layers(*root), ElementsAre(c->layer().get(), b->layer().get(), a->layer().get()));
    root->sendSubviewToBack(*b);
    EXPECT_THAT(root->subviews(), ElementsAre(b, c, a));
    EXPECT_THAT(layers(*root), ElementsAre(b->layer().get(), c->layer().get(), a->layer().get()));
    root->addSubview(b);
    EXPECT_THAT(root->subviews(), ElementsAre(c, a, b));
    EXPECT_THAT(layers(*root), ElementsAre(c->layer().get(), a->layer().get(), b->layer().get()));
    a->removeFromSuperview();
    EXPECT_THAT(layers(*root), ElementsAre(c->layer().get(), b->layer().get()));
}

TEST_F(UIViewTest, PutsSubviewsAroundLayersThatBelongToNone) {
    const auto root = view({}), a = view({}), b = view({});
    const auto bare = std::make_shared<Layer>();
    root->addSubview(a);
    root->layer()->addSublayer(bare);
    root->addSubview(b);
    EXPECT_THAT(layers(*root), ElementsAre(a->layer().get(), bare.get(), b->layer().get()));
    root->sendSubviewToBack(*b);
    EXPECT_THAT(layers(*root), ElementsAre(b->layer().get(), a->layer().get(), bare.get()));
}

TEST_F(UIViewTest, MovesAViewFromOneParentToAnother) {
    const auto one = view({}), two = view({}), child = view({});
    one->addSubview(child);
    two->addSubview(child);
    EXPECT_THAT(one->subviews(), IsEmpty());
    EXPECT_THAT(layers(*one), IsEmpty());
    EXPECT_EQ(child->superview(), two.get());
    EXPECT_TRUE(child->isDescendantOf(*two));
    EXPECT_FALSE(child->isDescendantOf(*one));
}

TEST_F(UIViewTest, NeverBecomesItsOwnAncestor) {
    const auto root = view({}), child = view({});
    root->addSubview(child);
    child->addSubview(root);
    child->addSubview(child);
    child->addSubview(nullptr);
    EXPECT_THAT(child->subviews(), IsEmpty());
    EXPECT_EQ(child->superview(), root.get());
}

TEST_F(UIViewTest, LeavesItsSubviewsAloneWhenItGoes) {
    const auto child = view({});
    {
        const auto root = view({});
        root->addSubview(child);
    }
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->layer()->superlayer(), nullptr);
    child->removeFromSuperview();
}

class TalkingView : public UIView {
public:
    TalkingView(Rect frame, support::Transcript& transcript) : UIView(frame), transcript_(transcript) {}
    void didMoveToSuperview() override { transcript_.add("moved, ", superview() ? "has" : "no", " parent"); }
    void didAddSubview(UIView& added) override { transcript_.add("added at x ", added.frame().x); }

private:
    support::Transcript& transcript_;
};

TEST_F(UIViewTest, TellsOfComingAndGoing) {
    const auto root = std::make_shared<TalkingView>(Rect{}, transcript);
    const auto child = std::make_shared<TalkingView>(Rect{7, 0, 1, 1}, transcript);
    root->addSubview(child);
    EXPECT_THAT(transcript.take(), ElementsAre("moved, has parent", "added at x 7"));
    root->bringSubviewToFront(*child);
    root->addSubview(child);
    EXPECT_THAT(transcript.take(), IsEmpty()) << "the order alone is no news";
    child->removeFromSuperview();
    EXPECT_THAT(transcript.take(), ElementsAre("moved, no parent"));
}

TEST_F(UIViewTest, KnowsItsWindow) {
    const auto window = shownWindow({0, 0, 100, 100});
    const auto child = view({}), deep = view({});
    child->addSubview(deep);
    EXPECT_EQ(deep->window(), nullptr);
    window->addSubview(child);
    EXPECT_EQ(deep->window(), window.get());
    EXPECT_EQ(window->window(), window.get());
}

// ---- Hit testing

TEST_F(UIViewTest, IsHitInItsDeepestFrontmostPart) {
    const auto root = view({0, 0, 100, 100}), back = view({0, 0, 60, 60}), front = view({30, 30, 60, 60}),
               deep = view({0, 0, 10, 10});
    root->addSubview(back);
    root->addSubview(front);
    front->addSubview(deep);
    EXPECT_EQ(root->hitTest({10, 10}), back.get());
    EXPECT_EQ(root->hitTest({50, 50}), front.get());
    EXPECT_EQ(root->hitTest({35, 35}), deep.get());
    EXPECT_EQ(root->hitTest({95, 5}), root.get());
    EXPECT_EQ(root->hitTest({100, 5}), nullptr);
}

TEST_F(UIViewTest, IsNotHitWhereItCannotBeSeenOrTouched) {
    const auto root = view({0, 0, 100, 100}), child = view({0, 0, 100, 100});
    root->addSubview(child);
    child->setHidden(true);
    EXPECT_EQ(root->hitTest({5, 5}), root.get());
    child->setHidden(false);
    child->setAlpha(0.01);
    EXPECT_EQ(root->hitTest({5, 5}), root.get());
    child->setAlpha(0.02);
    EXPECT_EQ(root->hitTest({5, 5}), child.get());
    child->setUserInteractionEnabled(false);
    EXPECT_EQ(root->hitTest({5, 5}), root.get());
    root->setUserInteractionEnabled(false);
    EXPECT_EQ(root->hitTest({5, 5}), nullptr);
}

TEST_F(UIViewTest, IsNotHitInAPartThatLiesOutsideItsParent) {
    const auto root = view({0, 0, 100, 100}), small = view({0, 0, 10, 10}), outside = view({20, 0, 10, 10});
    root->addSubview(small);
    small->addSubview(outside);
    EXPECT_EQ(root->hitTest({25, 5}), root.get());
}

TEST_F(UIViewTest, IsHitWhereItsTransformPutsIt) {
    const auto root = view({0, 0, 200, 200}), turned = view({50, 90, 100, 20});
    root->addSubview(turned);
    turned->setTransform(AffineTransform::rotation(quarterTurn));
    EXPECT_EQ(root->hitTest({100, 60}), turned.get());
    EXPECT_EQ(root->hitTest({60, 100}), root.get());
}

class DrawingView : public UIView {
public:
    using UIView::UIView;
    bool drawsContent() const override { return true; }
};

TEST_F(UIViewTest, TakesTouchesWhereSomethingIsSeen) {
    const auto root = view({0, 0, 100, 100});
    EXPECT_FALSE(root->takesTouchAt({5, 5}));
    root->setBackgroundColor(Color::clear());
    EXPECT_FALSE(root->takesTouchAt({5, 5}));
    const auto child = view({50, 50, 20, 20});
    root->addSubview(child);
    child->setBackgroundColor(Color::black().withAlpha(0.01));
    EXPECT_TRUE(root->takesTouchAt({55, 55}));
    EXPECT_FALSE(root->takesTouchAt({45, 55}));
    child->setUserInteractionEnabled(false);
    EXPECT_FALSE(root->takesTouchAt({55, 55}));
    root->layer()->setBackdrop(BackdropStyle::Dark);
    EXPECT_TRUE(root->takesTouchAt({5, 5}));
    EXPECT_TRUE(DrawingView({0, 0, 10, 10}).takesTouchAt({5, 5}));
}

// ---- Animation, and the rest

TEST_F(UIViewTest, AnswersModelValuesWhileItMoves) {
    const auto one = view({0, 0, 100, 100});
    UIView::animate(1, 0, AnimationCurve::Linear, [&] {
        one->setFrame({100, 0, 200, 100});
        one->setAlpha(0);
        one->setBackgroundColor(Color::black());
    });
    EXPECT_EQ(one->frame(), (Rect{100, 0, 200, 100}));
    EXPECT_EQ(one->alpha(), 0);
    loop.advance(0.5);
    EXPECT_EQ(one->layer()->presentedToParent().apply(Rect{0, 0, 150, 100}), (Rect{50, 0, 150, 100}));
    EXPECT_EQ(one->layer()->presented(LayerProperty::Opacity), AnimatableValue(0.5));
    EXPECT_EQ(one->layer()->presented(LayerProperty::BackgroundColor), AnimatableValue(Color{0, 0, 0, 0.5}));
}

TEST_F(UIViewTest, StandsWhereItIsWhenMadeInsideAnAnimation) {
    std::shared_ptr<UIView> made;
    UIView::animate(1, 0, AnimationCurve::Linear, [&] { made = view({10, 10, 50, 50}); });
    EXPECT_FALSE(made->layer()->hasAnimations());
}

TEST_F(UIViewTest, CrossDissolvesWithItsChangesMadeAtOnce) {
    const auto one = view({0, 0, 100, 100});
    const auto completed = [this](bool finished) {
        transcript.add(loop.now(), finished ? " finished" : " not finished");
    };
    UIView::transitionCrossDissolve(
        *one, 0.3, [&] { one->setBackgroundColor(Color::black()); }, completed);
    EXPECT_EQ(one->backgroundColor(), Color::black());
    EXPECT_EQ(one->alpha(), 1);
    EXPECT_TRUE(one->layer()->hasAnimations());
    loop.advance(0.29);
    EXPECT_THAT(transcript.take(), IsEmpty());
    loop.advance(1);
    EXPECT_THAT(transcript.take(), ElementsAre("0.3 finished"));
    EXPECT_FALSE(one->layer()->hasAnimations());
}

TEST_F(UIViewTest, FadesAPictureOfTheOldLookOutInFrontOfTheNew) {
    const auto root = view({0, 0, 100, 100}), one = view({10, 20, 30, 40}), last = view({0, 0, 1, 1});
    root->addSubview(one);
    root->addSubview(last);
    one->setBackgroundColor(Color::rgba(1, 0, 0));
    UIView::transitionCrossDissolve(*one, 1, [&] { one->setBackgroundColor(Color::rgba(0, 0, 1)); });
    ASSERT_EQ(root->layer()->sublayers().size(), 3u);
    const auto cover = root->layer()->sublayers()[1];
    EXPECT_EQ(cover->toParent().apply(cover->bounds()), (Rect{10, 20, 30, 40}));
    ASSERT_NE(cover->contents(), nullptr);
    EXPECT_EQ(cover->contents()->pixelWidth(), 60);
    EXPECT_EQ(cover->contents()->pixels()[0], 0) << "blue";
    EXPECT_EQ(cover->contents()->pixels()[2], 255) << "red";
    loop.advance(0.25);
    EXPECT_EQ(cover->presented(LayerProperty::Opacity), AnimatableValue(0.75));
    EXPECT_EQ(one->layer()->presented(LayerProperty::Opacity), AnimatableValue(0.25));
    loop.advance(1);
    EXPECT_THAT(layers(*root), ElementsAre(one->layer().get(), last->layer().get()));
}

TEST_F(UIViewTest, TakesNoPictureForACrossDissolveInAHiddenWindow) {
    const auto window = shownWindow({0, 0, 100, 100});
    const auto one = view({10, 20, 30, 40});
    window->addSubview(one);
    one->setBackgroundColor(Color::black());
    const auto layersDuring = [&] {
        int completions = 0;
        UIView::transitionCrossDissolve(
            *one, 1, [] {}, [&](bool finished) { completions += finished; });
        const std::size_t during = window->layer()->sublayers().size();
        loop.advance(2);
        EXPECT_EQ(completions, 1);
        return during;
    };
    EXPECT_EQ(layersDuring(), 2u);
    window->setHidden(true);
    EXPECT_EQ(layersDuring(), 1u);
}

TEST_F(UIViewTest, CompletesACrossDissolveOfAViewThatWent) {
    auto one = view({0, 0, 100, 100});
    int completions = 0;
    UIView::transitionCrossDissolve(
        *one, 0.3, [] {}, [&](bool) { ++completions; });
    one = nullptr;
    loop.advance(1);
    EXPECT_EQ(completions, 1);
    one = view({});
    UIView::transitionCrossDissolve(
        *one, 0, [] {}, [&](bool) { ++completions; });
    EXPECT_EQ(completions, 1);
    loop.turn();
    EXPECT_EQ(completions, 2);
}

TEST_F(UIViewTest, IsMadeByItsControllerOnFirstUse) {
    UIViewController controller;
    EXPECT_FALSE(controller.isViewLoaded());
    const auto made = controller.view();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->viewController(), &controller);
    EXPECT_EQ(controller.view(), made);
    controller.setView(view({}));
    EXPECT_EQ(made->viewController(), nullptr);
}

} // namespace
} // namespace toolkit
