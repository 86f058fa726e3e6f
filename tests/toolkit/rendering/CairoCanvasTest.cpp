#include "platform/toolkit/rendering/CairoCanvas.h"

#include "platform/toolkit/text/TextLayout.h"
#include "tests/toolkit/rendering/PixelTesting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace toolkit {
namespace {

constexpr Pixel clear{0, 0, 0, 0};
constexpr Pixel opaqueRed{255, 0, 0, 255};

std::shared_ptr<const Image> redAndBlue(int width, int height) {
    const double half = width / 2.0;
    return Image::draw({static_cast<double>(width), static_cast<double>(height)}, 1, [&](Canvas& canvas) {
        canvas.fillRect({0, 0, half, 1e4}, red());
        canvas.fillRect({half, 0, half, 1e4}, blue());
    });
}

TEST(CairoCanvas, CountsInPointsOfItsScale) {
    Painting painting(30, 30, 3);
    painting.canvas().fillRect({1, 2, 3, 4}, red());
    EXPECT_EQ(painting.at(3, 6), opaqueRed);
    EXPECT_EQ(painting.at(11, 17), opaqueRed);
    EXPECT_EQ(painting.at(12, 17), clear);
    EXPECT_EQ(painting.at(2, 6), clear);
}

TEST(CairoCanvas, ConcatenatesBeforeWhatStandsAlready) {
    Painting painting(40, 40);
    painting.canvas().concat(AffineTransform::scale(2, 2));
    painting.canvas().concat(AffineTransform::translation(5, 5));
    painting.canvas().fillRect({0, 0, 1, 1}, red());
    EXPECT_EQ(painting.at(10, 10), opaqueRed);
    EXPECT_EQ(painting.at(11, 11), opaqueRed);
    EXPECT_EQ(painting.at(12, 12), clear);
}

TEST(CairoCanvas, RestoresTransformAndClip) {
    Painting painting(20, 20);
    painting.canvas().save();
    painting.canvas().clipRect({0, 0, 1, 1});
    painting.canvas().concat(AffineTransform::translation(100, 100));
    painting.canvas().restore();
    painting.canvas().fillRect({10, 10, 1, 1}, red());
    EXPECT_EQ(painting.at(10, 10), opaqueRed);
}

TEST(CairoCanvas, DrawsNothingThroughAFlattenedPlaneAndGoesOnAfterIt) {
    Painting painting(10, 10);
    painting.canvas().save();
    painting.canvas().concat(AffineTransform::scale(0, 1));
    painting.canvas().fillRect({-100, -100, 200, 200}, red());
    painting.canvas().restore();
    EXPECT_EQ(painting.covered(), 0);
    painting.canvas().save();
    painting.canvas().concat({std::nan(""), 0, 0, 1, 0, 0});
    painting.canvas().fillRect({-100, -100, 200, 200}, red());
    painting.canvas().restore();
    EXPECT_EQ(painting.covered(), 0);
    painting.canvas().fillRect({0, 0, 1, 1}, red());
    EXPECT_EQ(painting.covered(), 1);
}

TEST(CairoCanvas, RoundsCorners) {
    Painting painting(20, 20);
    painting.canvas().fillRoundedRect({0, 0, 20, 20}, 10, red());
    EXPECT_NEAR(painting.covered(), std::numbers::pi * 100, 3);
    EXPECT_EQ(painting.at(0, 0), clear);
    EXPECT_EQ(painting.at(10, 10), opaqueRed);
}

TEST(CairoCanvas, ClipsToRoundedCorners) {
    Painting painting(20, 20);
    painting.canvas().clipRoundedRect({0, 0, 20, 20}, 10);
    painting.filled(red());
    EXPECT_NEAR(painting.covered(), std::numbers::pi * 100, 3);
}

TEST(CairoCanvas, FillsAndStrokesPaths) {
    Painting filled(20, 20), stroked(20, 20);
    filled.canvas().fillPath(Path::ellipse({0, 0, 20, 10}), red());
    EXPECT_NEAR(filled.covered(), std::numbers::pi * 50, 3);
    stroked.canvas().strokePath(Path().moveTo({5, 10}).lineTo({15, 10}), 4, LineCap::Butt, red());
    EXPECT_NEAR(stroked.covered(), 40, 0.5);
    stroked.canvas().strokePath(Path().moveTo({5, 10}).lineTo({15, 10}), 4, LineCap::Square, red());
    EXPECT_NEAR(stroked.covered(), 56, 0.5);
}

TEST(CairoCanvas, SurvivesAbsurdNumbers) {
    Painting painting(10, 10);
    const double huge = 1e300, nan = std::nan("");
    painting.canvas().fillRect({-huge, -huge, 2 * huge, 2 * huge}, red());
    EXPECT_EQ(painting.covered(), 100);
    painting.canvas().fillRect({nan, nan, nan, nan}, blue());
    painting.canvas().fillRoundedRect({0, 0, huge, huge}, huge, blue());
    painting.canvas().strokePath(Path().arc({5, 5}, 3, 0, huge), 1, LineCap::Round, blue());
    painting.canvas().drawShadow({0, 0, huge, huge}, huge, huge, {huge, huge}, blue());
    painting.canvas().drawShadow({nan, 0, 5, 5}, nan, nan, {0, 0}, blue());
    painting.canvas().drawBackdrop({-huge, -huge, 2 * huge, 2 * huge}, 0, BackdropStyle::Dark);
    painting.canvas().beginGroup({nan, nan, nan, nan}, 0.5, GroupBlend::Normal);
    painting.canvas().endGroup();
    painting.canvas().drawImage(*redAndBlue(2, 2), {0, 0, huge, huge}, 1, ImageFilter::Smooth);
    painting.canvas().fillRect({0, 0, 10, 10}, red());
    EXPECT_EQ(painting.at(5, 5), opaqueRed);
}

TEST(CairoCanvas, FillsGradients) {
    Painting painting(100, 10);
    painting.canvas().fillLinearGradient({0, 0, 100, 5}, {0, 0}, {100, 0},
                                         {{0, Color::black()}, {1, white()}});
    EXPECT_NEAR(painting.at(50, 2).red, 128, 3);
    EXPECT_NEAR(painting.at(99, 2).red, 255, 3);
    EXPECT_EQ(painting.at(50, 6), clear);
    Painting radial(21, 21);
    radial.canvas().fillRadialGradient({0, 0, 21, 21}, {10.5, 10.5}, 10, {{0, white()}, {1, white()}});
    EXPECT_EQ(radial.at(10, 10), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(radial.at(0, 0), clear);
}

TEST(CairoCanvas, CopiesAPictureOfItsOwnPixelsExactly) {
    const auto image = redAndBlue(8, 8);
    Painting painting(20, 20, 2);
    painting.canvas().drawImage(*image, {1.2, 1.2, 4, 4}, 1); // 2.4 pixels in: put on the second
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            ASSERT_EQ(painting.at(x + 2, y + 2), pixelAt(*image, x, y));
    EXPECT_EQ(painting.covered(), 64);
}

TEST(CairoCanvas, StretchesAPictureToItsEdges) {
    Painting smooth(40, 40), sharp(40, 40);
    smooth.canvas().drawImage(*redAndBlue(4, 4), {0, 0, 40, 40}, 1);
    sharp.canvas().drawImage(*redAndBlue(4, 4), {0, 0, 40, 40}, 1, ImageFilter::Nearest);
    EXPECT_EQ(smooth.covered(), 1600);
    EXPECT_EQ(smooth.at(0, 0), opaqueRed);
    EXPECT_GT(smooth.at(19, 20).blue, 50);
    EXPECT_EQ(sharp.at(19, 20), opaqueRed);
}

TEST(CairoCanvas, FadesAPicture) {
    Painting painting(4, 4);
    painting.canvas().drawImage(*redAndBlue(4, 4), {0, 0, 4, 4}, 0.5);
    EXPECT_NEAR(painting.at(0, 0).alpha, 128, 1);
    painting.canvas().drawImage(*redAndBlue(4, 4), {0, 0, 4, 4}, 0);
    EXPECT_NEAR(painting.at(0, 0).alpha, 128, 1);
}

TEST(CairoCanvas, LaysAGroupOverTheRestAsOne) {
    Painting painting(10, 10);
    painting.filled(white());
    painting.canvas().beginGroup({0, 0, 10, 10}, 0.5, GroupBlend::Normal);
    painting.canvas().fillRect({0, 0, 10, 10}, red());
    painting.canvas().fillRect({0, 0, 5, 10}, red()); // twice the same: not darker
    painting.canvas().endGroup();
    EXPECT_EQ(painting.at(2, 5), painting.at(8, 5));
    EXPECT_NEAR(painting.at(2, 5).green, 128, 1);
}

TEST(CairoCanvas, KeepsTransformAndClipAroundAGroup) {
    Painting painting(20, 20);
    painting.canvas().clipRect({0, 0, 8, 20});
    painting.canvas().concat(AffineTransform::translation(4, 4));
    painting.canvas().beginGroup({0, 0, 10, 10}, 1, GroupBlend::Normal);
    painting.canvas().concat(AffineTransform::translation(1, 1));
    painting.canvas().fillRect({0, 0, 10, 10}, red());
    painting.canvas().endGroup();
    EXPECT_EQ(painting.at(5, 5), opaqueRed);
    EXPECT_EQ(painting.at(4, 4), clear);
    EXPECT_EQ(painting.at(8, 5), clear); // outside the clip
    painting.canvas().fillRect({0, 0, 1, 1}, blue());
    EXPECT_EQ(painting.at(4, 4), (Pixel{0, 0, 255, 255}));
}

TEST(CairoCanvas, NestsGroups) {
    Painting painting(10, 10);
    painting.filled(white());
    painting.canvas().beginGroup({0, 0, 10, 10}, 0.5, GroupBlend::Normal);
    painting.canvas().beginGroup({2, 2, 6, 6}, 0.5, GroupBlend::Normal);
    painting.canvas().fillRect({0, 0, 10, 10}, Color::black());
    painting.canvas().endGroup();
    painting.canvas().endGroup();
    EXPECT_NEAR(painting.at(5, 5).red, 191, 1);
    EXPECT_EQ(painting.at(1, 1).red, 255);
}

TEST(CairoCanvas, AnEmptyGroupSwallowsItsCommands) {
    Painting painting(10, 10);
    painting.canvas().clipRect({0, 0, 2, 2});
    painting.canvas().beginGroup({5, 5, 2, 2}, 1, GroupBlend::Normal);
    painting.filled(red());
    painting.canvas().endGroup();
    EXPECT_EQ(painting.covered(), 0);
}

TEST(CairoCanvas, IgnoresAnEndWithoutABeginning) {
    Painting painting(10, 10);
    painting.canvas().endGroup();
    painting.canvas().endGroupMasked({0, 0, 1, 1}, {0, 0}, {1, 0}, {});
    painting.filled(red());
    EXPECT_EQ(painting.covered(), 100);
}

const std::vector<GradientStop> fadeIn{{0, Color::clear()}, {0.5, Color::black()}, {1, Color::black()}};

TEST(CairoCanvas, MasksAGroupByAGradientsAlpha) {
    Painting painting(20, 100);
    painting.canvas().beginGroup({0, 0, 20, 100}, 1, GroupBlend::Normal);
    painting.filled(red());
    painting.canvas().endGroupMasked({0, 0, 10, 80}, {0, 0}, {0, 80}, fadeIn);
    EXPECT_NEAR(painting.at(5, 0).alpha, 3, 1);
    EXPECT_NEAR(painting.at(5, 20).alpha, 131, 2);
    EXPECT_EQ(painting.at(5, 60).alpha, 255);
    EXPECT_EQ(painting.at(5, 81), clear);  // the mask ends
    EXPECT_EQ(painting.at(12, 60), clear); // and at its side
}

TEST(CairoCanvas, MasksInTheSameWayAlongAndAcross) {
    Painting along(60, 60), across(60, 60), slanted(60, 60);
    const auto masked = [](Painting& painting, Point to) {
        painting.canvas().beginGroup({0, 0, 60, 60}, 1, GroupBlend::Normal);
        painting.filled(white());
        painting.canvas().endGroupMasked({0, 0, 60, 60}, {0, 0}, to, fadeIn);
    };
    masked(along, {60, 0});
    masked(across, {0, 60});
    masked(slanted, {60, 0.1}); // so near an axis, and yet the library's own gradient
    for (int i = 0; i < 60; ++i) {
        EXPECT_EQ(along.at(i, 30), across.at(30, i));
        EXPECT_NEAR(along.at(i, 30).alpha, slanted.at(i, 30).alpha, 3) << i;
    }
}

TEST(CairoCanvas, VibrantTextStaysReadable) {
    const auto levelOver = [](double beneath, double text, GroupBlend blend) {
        Painting painting(4, 4);
        painting.filled(Color::white(beneath));
        painting.canvas().beginGroup({0, 0, 4, 4}, 1, blend);
        painting.filled(Color::white(text));
        painting.canvas().endGroup();
        EXPECT_EQ(painting.at(1, 1).alpha, 255);
        return painting.at(1, 1).red;
    };
    for (const double beneath : {0.1, 0.2, 0.35}) // what dark glass shows
        EXPECT_GE(levelOver(beneath, 1, GroupBlend::VibrancyDark), 250) << beneath;
    EXPECT_GT(levelOver(0.3, 0.5, GroupBlend::VibrancyDark), levelOver(0.1, 0.5, GroupBlend::VibrancyDark));
    for (const double beneath : {0.65, 0.8, 1.0}) // what light glass shows
        for (const double text : {0.0, 0.5, 1.0})
            EXPECT_LE(levelOver(beneath, text, GroupBlend::VibrancyLight), 0.36 * 255 * beneath) << beneath;
}

TEST(CairoCanvas, VibrancyLeavesWhatItsGroupDoesNotCover) {
    for (const GroupBlend blend : {GroupBlend::VibrancyDark, GroupBlend::VibrancyLight}) {
        Painting painting(10, 10), plain(10, 10);
        painting.filled(Color::rgba(0.3, 0.4, 0.5));
        plain.filled(Color::rgba(0.3, 0.4, 0.5));
        painting.canvas().beginGroup({0, 0, 10, 10}, 1, blend);
        painting.canvas().fillRect({3, 3, 1, 1}, white());
        painting.canvas().endGroup();
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 10; ++x)
                EXPECT_EQ(painting.at(x, y) == plain.at(x, y), !(x == 3 && y == 3)) << x << ", " << y;
    }
}

TEST(CairoCanvas, VibrancyLooksAlikeThroughARoundedClip) {
    Painting direct(20, 20), clipped(20, 20);
    for (Painting* painting : {&direct, &clipped}) {
        painting->filled(Color::white(0.3));
        painting->canvas().save();
        if (painting == &clipped)
            painting->canvas().clipRoundedRect({0, 0, 20, 20}, 8);
        painting->canvas().beginGroup({0, 0, 20, 20}, 0.8, GroupBlend::VibrancyDark);
        painting->canvas().fillRect({0, 0, 20, 20}, Color::white(0.7));
        painting->canvas().endGroup();
        painting->canvas().restore();
    }
    EXPECT_EQ(direct.at(10, 10), clipped.at(10, 10));
    const Pixel untouched = Painting(1, 1).filled(Color::white(0.3)).at(0, 0);
    EXPECT_EQ(clipped.at(0, 0), untouched);
    EXPECT_NE(direct.at(0, 0), untouched);
}

TEST(CairoCanvas, CastsAShadowAroundAndBeneath) {
    Painting painting(100, 100);
    painting.canvas().drawShadow({30, 30, 40, 40}, 0, 5, {0, 0}, Color::black());
    EXPECT_NEAR(painting.at(50, 50).alpha, 255, 1);
    EXPECT_NEAR(painting.at(30, 50).alpha, 134, 8); // half of it at the edge
    EXPECT_NEAR(painting.at(29, 50).alpha, 121, 8);
    EXPECT_GT(painting.at(22, 50).alpha, 5);
    EXPECT_EQ(painting.at(10, 50).alpha, 0);
    EXPECT_NEAR(painting.covered(), 1600, 16); // blurring moves, it does not make
}

TEST(CairoCanvas, MovesTheShadowByItsOffset) {
    Painting painting(100, 100), moved(100, 100);
    painting.canvas().drawShadow({30, 30, 20, 20}, 4, 3, {0, 0}, red());
    moved.canvas().drawShadow({30, 30, 20, 20}, 4, 3, {5, -6}, red());
    for (int y = 10; y < 90; ++y)
        for (int x = 10; x < 90; ++x)
            ASSERT_EQ(painting.at(x, y), moved.at(x + 5, y - 6));
}

TEST(CairoCanvas, StretchesTheShadowOfALargeRectangleFromASmallOne) {
    Painting narrow(400, 120), wide(400, 120);
    narrow.canvas().drawShadow({30, 30, 60, 60}, 10, 4, {0, 0}, Color::black());
    wide.canvas().drawShadow({30, 30, 340, 60}, 10, 4, {0, 0}, Color::black());
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 50; ++x) {
            ASSERT_EQ(narrow.at(x, y), wide.at(x, y)) << x << ", " << y;
            ASSERT_EQ(narrow.at(119 - x, y), wide.at(399 - x, y)) << x << ", " << y;
        }
}

} // namespace
} // namespace toolkit
