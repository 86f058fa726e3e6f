#include "platform/toolkit/rendering/Backdrop.h"

#include "tests/toolkit/rendering/PixelTesting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace toolkit {
namespace {

constexpr int side = 240;

/// Stripes of black and white, `width` pixels each.
void paintStripes(Painting& painting, int width) {
    painting.filled(Color::black());
    for (int x = 0; x < side; x += 2 * width)
        painting.canvas().fillRect({static_cast<double>(x), 0, static_cast<double>(width), side}, white());
}

/// The largest difference of neighbouring pixels within `inset` of the edges.
int sharpestStep(const Painting& painting, int inset) {
    int sharpest = 0;
    for (int y = inset; y < side - inset; ++y)
        for (int x = inset; x + 1 < side - inset; ++x)
            sharpest = std::max(sharpest, std::abs(painting.at(x, y).red - painting.at(x + 1, y).red));
    return sharpest;
}

TEST(Backdrop, BlursAwayStripes) {
    for (const double scale : {1.0, 2.0, 3.0, 1.5}) {
        Painting painting(side, side, scale);
        painting.canvas().concat(AffineTransform::scale(1 / scale, 1 / scale));
        paintStripes(painting, 6);
        EXPECT_EQ(sharpestStep(painting, 0), 255);
        painting.canvas().drawBackdrop({0, 0, side, side}, 0, BackdropStyle::Light);
        EXPECT_LE(sharpestStep(painting, 20), 2) << scale;
    }
}

TEST(Backdrop, KeepsLargeFeaturesApart) {
    Painting painting(side, side);
    painting.filled(Color::black());
    painting.canvas().fillRect({0, 0, side / 2, side}, white());
    painting.canvas().drawBackdrop({0, 0, side, side}, 0, BackdropStyle::Dark);
    EXPECT_GT(painting.at(5, 100).red, painting.at(side - 5, 100).red + 50);
    // The edge has become a slope, symmetrical about the middle.
    const int middle = (painting.at(side / 2, 100).red + painting.at(side / 2 - 1, 100).red) / 2;
    EXPECT_NEAR(middle, (painting.at(0, 100).red + painting.at(side - 1, 100).red) / 2, 2);
    EXPECT_LE(sharpestStep(painting, 0), 4);
}

TEST(Backdrop, LeavesAnEvenColourEven) {
    Painting painting(side, side);
    painting.filled(Color::rgba(0.2, 0.5, 0.7))
        .canvas()
        .drawBackdrop({0, 0, side, side}, 0, BackdropStyle::Dark);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            ASSERT_EQ(painting.at(x, y), painting.at(0, 0)) << x << ", " << y;
    EXPECT_EQ(painting.at(0, 0).alpha, 255);
}

TEST(Backdrop, DarkGlassDarkensAndLightGlassLightens) {
    const auto through = [](double level, BackdropStyle style) {
        Painting painting(side, side);
        painting.filled(Color::white(level)).canvas().drawBackdrop({0, 0, side, side}, 0, style);
        return painting.at(100, 100).red;
    };
    EXPECT_LT(through(1, BackdropStyle::Dark), 110); // white letters can be read on it
    EXPECT_LT(through(0, BackdropStyle::Dark), through(1, BackdropStyle::Dark));
    EXPECT_GT(through(0, BackdropStyle::Light), 150); // and black ones on this
    EXPECT_GT(through(1, BackdropStyle::Light), through(0, BackdropStyle::Light));
}

TEST(Backdrop, MakesColoursStronger) {
    Painting painting(side, side);
    painting.filled(Color::rgba(0.6, 0.4, 0.4))
        .canvas()
        .drawBackdrop({0, 0, side, side}, 0, BackdropStyle::Dark);
    const double plainDifference = 0.2 * 255 * (1 - 0.72);
    EXPECT_GT(painting.at(9, 9).red - painting.at(9, 9).green, plainDifference + 4);
}

TEST(Backdrop, TakesNothingFromOutsideItsRectangle) {
    Painting onBlack(side, side), onWhite(side, side);
    onBlack.filled(Color::black());
    onWhite.filled(white());
    for (Painting* painting : {&onBlack, &onWhite}) {
        painting->canvas().fillRect({53, 61, 101, 87}, Color::rgba(0.2, 0.6, 0.4));
        painting->canvas().drawBackdrop({53, 61, 101, 87}, 0, BackdropStyle::Light);
    }
    for (int y = 61; y < 148; ++y)
        for (int x = 53; x < 154; ++x)
            ASSERT_EQ(onBlack.at(x, y), onWhite.at(x, y));
    EXPECT_EQ(onBlack.at(52, 100).red, 0);
    EXPECT_EQ(onBlack.at(154, 100).red, 0);
}

TEST(Backdrop, HonoursItsCornersInEitherWay) {
    Painting direct(side, side), clipped(side, side);
    for (Painting* painting : {&direct, &clipped}) {
        paintStripes(*painting, 20);
        if (painting == &clipped) // a curved clip, which takes another road
            painting->canvas().clipRoundedRect({-300, -300, 840, 840}, 5);
        painting->canvas().drawBackdrop({20, 20, 200, 200}, 40, BackdropStyle::Light);
    }
    EXPECT_EQ(direct.at(44, 21).red, 255); // a white stripe, untouched in the corner
    EXPECT_NE(direct.at(44, 100).red, 255);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            ASSERT_NEAR(direct.at(x, y).red, clipped.at(x, y).red, 25)
                << x << ", " << y; // a tenth of coverage
}

TEST(Backdrop, CanBeLaidDownAgainInParts) {
    Painting whole(side, side), parts(side, side);
    paintStripes(whole, 13);
    paintStripes(parts, 13);
    const Rect rect{10, 10, 200, 200};
    whole.canvas().drawBackdrop(rect, 12, BackdropStyle::Dark);
    const Backdrop kept = parts.canvas().captureBackdrop({10, 10, 200, 200}, BackdropStyle::Dark);
    for (const Rect part : {Rect{0, 0, 77, 240}, Rect{77, 0, 163, 101}, Rect{77, 101, 163, 139}}) {
        parts.canvas().save();
        parts.canvas().clipRect(part);
        parts.canvas().drawBackdrop(kept, rect, 12);
        parts.canvas().restore();
    }
    EXPECT_EQ(whole.bytes(), parts.bytes());
}

TEST(Backdrop, SeesThroughTheGroupThatItStandsIn) {
    Painting plain(side, side), grouped(side, side);
    for (Painting* painting : {&plain, &grouped})
        paintStripes(*painting, 30);
    plain.canvas().drawBackdrop({0, 0, side, side}, 0, BackdropStyle::Dark);
    grouped.canvas().beginGroup({0, 0, side, side}, 1, GroupBlend::Normal);
    grouped.canvas().drawBackdrop({0, 0, side, side}, 0, BackdropStyle::Dark);
    grouped.canvas().endGroup();
    EXPECT_EQ(plain.bytes(), grouped.bytes());
}

TEST(Backdrop, DoesNotFlickerWhileItSlidesOverAPicture) {
    // Cells lie on the screen, not on the glass, so a step of one pixel hardly changes what is seen inside.
    const auto at = [](int offset) {
        Painting painting(side, side);
        paintStripes(painting, 17);
        painting.canvas().drawBackdrop({static_cast<double>(offset), 0, 120, side}, 0, BackdropStyle::Light);
        return painting.at(70, 120).red;
    };
    for (int offset = 0; offset < 12; ++offset)
        EXPECT_NEAR(at(offset), at(offset + 1), 3) << offset;
}

TEST(Backdrop, OfNothingDrawsNothing) {
    Painting painting(10, 10);
    painting.filled(red());
    painting.canvas().drawBackdrop({20, 20, 5, 5}, 0, BackdropStyle::Dark);
    painting.canvas().drawBackdrop({2, 2, 0, 5}, 0, BackdropStyle::Dark);
    EXPECT_EQ(painting.at(2, 2), (Pixel{255, 0, 0, 255}));
    EXPECT_TRUE(Backdrop().isEmpty());
}

} // namespace
} // namespace toolkit
