#include "platform/toolkit/rendering/RecordingCanvas.h"

#include "platform/toolkit/text/TextLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace toolkit {
namespace {

using testing::ElementsAre;

TEST(RecordingCanvas, WritesEachCommandDownAsOneLine) {
    RecordingCanvas canvas;
    canvas.save();
    canvas.concat(AffineTransform::translation(1.5, -2));
    canvas.clipRoundedRect({0, 0, 10, 20}, 3);
    canvas.fillRect({1, 2, 3.25, 4}, Color::rgba(1, 0.5, 0, 0.25));
    canvas.beginGroup({0, 0, 5, 5}, 0.5, GroupBlend::VibrancyDark);
    canvas.endGroupMasked({0, 0, 5, 5}, {0, 0}, {0, 5}, {{0, Color::clear()}, {1, Color::black()}});
    canvas.restore();
    EXPECT_THAT(canvas.lines(),
                ElementsAre("save", "concat {1, 0, 0, 1, 1.5, -2}", "clipRoundedRect [0, 0, 10, 20] 3",
                            "fillRect [1, 2, 3.25, 4] rgba(1, 0.5, 0, 0.25)",
                            "beginGroup [0, 0, 5, 5] 0.5 vibrancy-dark",
                            "endGroupMasked [0, 0, 5, 5] (0, 0) (0, 5) 0:rgba(0, 0, 0, 0) 1:rgba(0, 0, 0, 1)",
                            "restore"));
}

TEST(RecordingCanvas, WritesTheRestDownToo) {
    RecordingCanvas canvas;
    canvas.strokePath(Path().moveTo({0, 0}).lineTo({1, 1}).close(), 2, LineCap::Round, Color::black());
    canvas.drawImage(Image(2, 3, 8, std::vector<std::uint8_t>(24), 2), {0, 0, 1, 1}, 0.5,
                     ImageFilter::Nearest);
    canvas.drawShadow({0, 0, 1, 1}, 2, 3, {4, 5}, Color::black());
    canvas.drawBackdrop({0, 0, 1, 1}, 2, BackdropStyle::Light);
    EXPECT_THAT(canvas.lines(), ElementsAre("strokePath M(0, 0)L(1, 1)Z 2 round rgba(0, 0, 0, 1)",
                                            "drawImage image 2x3@2 [0, 0, 1, 1] 0.5 nearest",
                                            "drawShadow [0, 0, 1, 1] 2 3 4x5 rgba(0, 0, 0, 1)",
                                            "drawBackdrop [0, 0, 1, 1] 2 light"));
}

TEST(RecordingCanvas, KeepsTextOnOneLine) {
    RecordingCanvas canvas;
    TextStyle style{Font::system(12, FontWeight::Bold)};
    style.numberOfLines = 0;
    canvas.drawText(TextLayout("two\n\"lines\"\t", style, -1), {1, 2}, Color::black());
    EXPECT_THAT(
        canvas.lines(),
        ElementsAre("drawText \"two\\n\\x22lines\\x22\\x09\" size 12 weight 700 (1, 2) rgba(0, 0, 0, 1)"));
}

TEST(RecordingCanvas, CountsAndForgets) {
    RecordingCanvas canvas;
    canvas.save();
    canvas.fillRect({0, 0, 1, 1}, Color::black());
    canvas.fillRect({0, 0, 1, 1}, Color::black());
    EXPECT_EQ(canvas.count("fillRect"), 2u);
    EXPECT_EQ(canvas.count("restore"), 0u);
    EXPECT_EQ(canvas.commands()[1], canvas.commands()[2]);
    canvas.clear();
    EXPECT_TRUE(canvas.commands().empty());
}

} // namespace
} // namespace toolkit
