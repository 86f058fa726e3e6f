#include "platform/toolkit/layers/ShapeLayer.h"

#include "platform/toolkit/rendering/RecordingCanvas.h"
#include "tests/toolkit/layers/LayerScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<std::string> drawn(const ShapeLayer& shape) {
    RecordingCanvas canvas;
    shape.drawShape(canvas);
    return canvas.lines();
}

TEST(ShapeLayer, FillsAndThenStrokesItsPath) {
    ShapeLayer shape;
    EXPECT_FALSE(shape.drawsShape()) << "without a path there is nothing to draw";
    shape.setPath(Path::rect({0, 0, 10, 10}));
    EXPECT_TRUE(shape.drawsShape());
    shape.setStrokeColor(Color::white(1));
    shape.setLineWidth(3);
    shape.setLineCap(LineCap::Round);
    EXPECT_THAT(drawn(shape), ElementsAre(StartsWith("fillPath"), StartsWith("strokePath")));
}

TEST(ShapeLayer, LeavesOutWhatIsClearOrHasNoWidth) {
    ShapeLayer shape;
    shape.setPath(Path::rect({0, 0, 10, 10}));
    shape.setFillColor(Color::clear());
    EXPECT_FALSE(shape.drawsShape());
    shape.setStrokeColor(Color::black());
    EXPECT_THAT(drawn(shape), ElementsAre(StartsWith("strokePath")));
    shape.setLineWidth(0);
    EXPECT_FALSE(shape.drawsShape());
    EXPECT_THAT(drawn(shape), IsEmpty());
}

TEST(ShapeLayer, IsDrawnAgainOnlyForAChange) {
    ShapeLayer shape;
    const Path path = Path::ellipse({0, 0, 10, 10});
    shape.setPath(path);
    const auto version = shape.contentVersion();
    shape.setPath(path);
    shape.setLineWidth(shape.lineWidth());
    EXPECT_EQ(shape.contentVersion(), version);
    shape.setFillColor(Color::white(1));
    EXPECT_GT(shape.contentVersion(), version);
}

} // namespace
} // namespace toolkit
