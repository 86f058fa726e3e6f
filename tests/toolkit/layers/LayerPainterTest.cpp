#include "platform/toolkit/layers/LayerPainter.h"

#include "platform/toolkit/layers/DisplayListBuilder.h"
#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "tests/support/ToolkitTest.h"
#include "tests/toolkit/layers/LayerScene.h"

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What is drawn of a tree on a screen of 100 × 80 pixels, one a point.
class LayerPainterTest : public support::ToolkitTest {
protected:
    const RecordingCanvas& painted(const std::shared_ptr<Layer>& root, PixelRect damage = {0, 0, 100, 80}) {
        canvas.clear();
        DisplayListBuilder({0, 0, 100, 80}, 1).build({root}, items);
        LayerPainter(cache, 1).paint(items, 0, items.size(), damage, canvas);
        return canvas;
    }

    RecordingCanvas canvas;
    ContentCache cache;
    std::vector<DisplayItem> items;
};

TEST_F(LayerPainterTest, DrawsABackgroundInItsPlace) {
    EXPECT_THAT(painted(makeLayer({10, 20, 30, 40}, Color::black())).lines(),
                ElementsAre("save", "clipRect [10, 20, 30, 40]", "concat {1, 0, 0, 1, 10, 20}",
                            "fillRect [0, 0, 30, 40] rgba(0, 0, 0, 1)", "restore"));
}

TEST_F(LayerPainterTest, DrawsNothingForWhatShowsNothing) {
    auto container = makeLayer({0, 0, 100, 80});
    container->addSublayer(makeLayer({0, 0, 10, 10}, Color::clear()));
    auto hidden = makeLayer({0, 0, 10, 10}, Color::black());
    hidden->setHidden(true);
    container->addSublayer(hidden);
    auto empty = makeLayer({0, 0, 0, 10}, Color::black());
    container->addSublayer(empty);
    container->setOpacity(0.5);
    EXPECT_THAT(painted(container).lines(), IsEmpty());
}

TEST_F(LayerPainterTest, FadesASingleThingWithoutAGroup) {
    auto layer = makeLayer({0, 0, 100, 80}, Color::black());
    layer->setOpacity(0.5);
    painted(layer);
    EXPECT_EQ(canvas.count("beginGroup"), 0u);
    EXPECT_THAT(canvas.lines(), testing::Contains("fillRect [0, 0, 100, 80] rgba(0, 0, 0, 0.5)"));
    // A single thing anywhere below is faded likewise.
    auto window = makeLayer({0, 0, 100, 80});
    window->setOpacity(0.5);
    window->addSublayer(layer);
    painted(window);
    EXPECT_EQ(canvas.count("beginGroup"), 0u);
    EXPECT_THAT(canvas.lines(), testing::Contains("fillRect [0, 0, 100, 80] rgba(0, 0, 0, 0.25)"));
}

TEST_F(LayerPainterTest, FadesSeveralThingsAsAGroupAroundJustThose) {
    auto layer = makeLayer({0, 0, 100, 80});
    layer->setOpacity(0.5);
    layer->addSublayer(makeLayer({10, 10, 10, 10}, Color::black()));
    layer->addSublayer(makeLayer({30, 10, 10, 10}, Color::black()));
    painted(layer);
    EXPECT_EQ(canvas.lines().front(), "beginGroup [10, 10, 30, 10] 0.5 normal");
    EXPECT_EQ(canvas.lines().back(), "endGroup");
}

TEST_F(LayerPainterTest, MakesAGroupForAMaskOrABlend) {
    auto layer = makeLayer({0, 0, 100, 80}, Color::black());
    layer->setGroupBlend(GroupBlend::VibrancyLight);
    EXPECT_EQ(painted(layer).lines().front(), "beginGroup [0, 0, 100, 80] 1 vibrancy-light");
    layer->setGroupBlend(GroupBlend::Normal);
    layer->setMask(
        GradientMask{{0, 0, 100, 40}, {0, 10}, {0, 0}, {0, 1}, {{0, Color::clear()}, {1, Color::black()}}});
    EXPECT_EQ(painted(layer).lines().back(),
              "endGroupMasked [0, 10, 100, 40] (0, 10) (0, 50) 0:rgba(0, 0, 0, 0) 1:rgba(0, 0, 0, 1)");
}

TEST_F(LayerPainterTest, LeavesOutWhatTheDamageDoesNotTouch) {
    auto root = makeLayer({0, 0, 100, 80});
    auto group = makeLayer({0, 0, 20, 20}, Color::black());
    group->setOpacity(0.5);
    group->addSublayer(makeLayer({0, 0, 20, 20}, Color::black()));
    root->addSublayer(group);
    root->addSublayer(makeLayer({50, 50, 20, 20}, Color::black()));
    painted(root, {60, 60, 5, 5});
    EXPECT_EQ(canvas.count("fillRect"), 1u);
    EXPECT_EQ(canvas.count("beginGroup"), 0u);
    EXPECT_EQ(canvas.count("endGroup"), 0u);
}

TEST_F(LayerPainterTest, DrawsTheThingsOfALayerInTheirOrder) {
    DrawnContent content([](Canvas&, Rect) {});
    auto layer = makeLayer({10, 10, 40, 40}, Color::black());
    layer->setShadow({Color::black(), 0.5, 4, {0, 2}});
    layer->setCornerRadius(8);
    layer->setBorder(2, Color::white(1));
    layer->setDelegate(&content);
    layer->addSublayer(makeLayer({5, 5, 5, 5}, Color::rgba(1, 0, 0)));
    std::vector<std::string> names;
    for (const auto& command : painted(layer).commands())
        if (command.name != "save" && command.name != "restore" && command.name != "concat" &&
            command.name != "clipRect")
            names.push_back(command.name);
    EXPECT_THAT(names, ElementsAre("drawShadow", "fillRoundedRect", "drawImage", "fillRect", "strokePath"));
    layer->setDelegate(nullptr);
}

TEST_F(LayerPainterTest, AShadowIsCastByItsPathAlone) {
    auto layer = makeLayer({10, 10, 40, 40});
    layer->setShadow({Color::black(), 0.5, 4, {0, 2}, Rect(5, 5, 20, 10)});
    painted(layer);
    EXPECT_THAT(canvas.lines(), testing::Contains(testing::HasSubstr("drawShadow [5, 5, 20, 10]")));
}

TEST_F(LayerPainterTest, ClipsToARoundedEdgeOnlyWhatReachesIt) {
    auto parent = makeLayer({0, 0, 100, 80});
    parent->setCornerRadius(20);
    parent->setMasksToBounds(true);
    parent->addSublayer(makeLayer({30, 30, 10, 10}, Color::black()));
    painted(parent);
    EXPECT_EQ(canvas.count("clipRoundedRect"), 0u);
    parent->addSublayer(makeLayer({0, 0, 10, 10}, Color::black()));
    painted(parent);
    EXPECT_EQ(canvas.count("clipRoundedRect"), 1u);
}

TEST_F(LayerPainterTest, ReducesAPictureOnceToTheSizeInWhichItIsShown) {
    auto layer = makeLayer({0, 0, 10, 10});
    layer->setContents(Image::draw({400, 400}, 1, [](Canvas&) {}));
    painted(layer);
    EXPECT_THAT(canvas.lines(), testing::Contains("drawImage image 10x10@1 [0, 0, 10, 10] 1 smooth"));
}

} // namespace
} // namespace toolkit
