#include "platform/toolkit/rendering/Image.h"

#include "platform/toolkit/rendering/ImageContext.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "tests/toolkit/rendering/PixelTesting.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace toolkit {
namespace {

std::shared_ptr<const Image> checkerboard(int side, Color even, Color odd) {
    return Image::draw({static_cast<double>(side), static_cast<double>(side)}, 1, [&](Canvas& canvas) {
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                canvas.fillRect({static_cast<double>(x), static_cast<double>(y), 1, 1},
                                (x + y) % 2 ? odd : even);
    });
}

std::shared_ptr<const Image> plain(int width, int height, Color color) {
    return Image::draw({static_cast<double>(width), static_cast<double>(height)}, 1, [&](Canvas& canvas) {
        canvas.fillRect({0, 0, 1e4, 1e4}, color);
    });
}

TEST(Image, IsDrawnAtItsScale) {
    const auto image = Image::draw({10.5, 4}, 2, [](Canvas& canvas) {
        canvas.fillRect({0, 0, 1, 1}, red());
    });
    EXPECT_EQ(image->pixelWidth(), 21);
    EXPECT_EQ(image->pixelHeight(), 8);
    EXPECT_EQ(image->size(), (Size{10.5, 4}));
    EXPECT_EQ(pixelAt(*image, 1, 1), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(pixelAt(*image, 2, 1), (Pixel{0, 0, 0, 0}));
}

TEST(Image, OfAnAbsurdSizeIsBounded) {
    const auto image = Image::draw({1e9, 1e9}, 3, [](Canvas&) {});
    EXPECT_LE(static_cast<std::int64_t>(image->pixelWidth()) * image->pixelHeight(), maximumImagePixels);
}

TEST(Image, RefusesPixelsThatDoNotFitItsSize) {
    EXPECT_THROW(Image(10, 10, 40, std::vector<std::uint8_t>(399), 1), std::invalid_argument);
    EXPECT_THROW(Image(10, 10, 36, std::vector<std::uint8_t>(400), 1), std::invalid_argument);
    EXPECT_THROW(Image(0, 10, 40, std::vector<std::uint8_t>(400), 1), std::invalid_argument);
    EXPECT_NO_THROW(Image(10, 10, 40, std::vector<std::uint8_t>(400), 1));
}

TEST(Image, ReducedToOnePixelIsItsAverage) {
    const auto reduced = checkerboard(8, Color::black(), white())->reducedTo(1, 1);
    EXPECT_EQ(pixelAt(*reduced, 0, 0), (Pixel{128, 128, 128, 255}));
}

TEST(Image, OfOneColourStaysExactlyThatWhenReduced) {
    for (const int level : {127, 128, 1, 254}) {
        const auto reduced = plain(750, 1334, Color::white(level / 255.0))->reducedTo(1, 1);
        EXPECT_EQ(pixelAt(*reduced, 0, 0), (Pixel{level, level, level, 255}));
    }
}

TEST(Image, ReducedByAFractionWeighsPixelsByTheirShare) {
    // Three columns on two: each takes one whole column and a half of the middle one.
    const auto image = Image::draw({3, 1}, 1, [](Canvas& canvas) { canvas.fillRect({1, 0, 1, 1}, white()); });
    const auto reduced = image->reducedTo(2, 1);
    EXPECT_EQ(pixelAt(*reduced, 0, 0).alpha, 85);
    EXPECT_EQ(pixelAt(*reduced, 1, 0).alpha, 85);
}

TEST(ImageContext, StartsClearOrBlack) {
    EXPECT_EQ(ImageContext({1, 1}, false, 1).pixel(0, 0), (std::array<std::uint8_t, 4>{0, 0, 0, 0}));
    EXPECT_EQ(ImageContext({1, 1}, true, 1).pixel(0, 0), (std::array<std::uint8_t, 4>{0, 0, 0, 255}));
    EXPECT_EQ(ImageContext({1, 1}, false, 1).pixel(5, -1), (std::array<std::uint8_t, 4>{}));
}

TEST(ImageContext, AveragesAPictureThatIsSqueezedIntoOnePixel) {
    ImageContext context({1, 1}, false, 1);
    context.setInterpolationQuality(InterpolationQuality::Medium);
    context.draw(*checkerboard(100, Color::rgba(1, 0, 0), Color::rgba(0, 0, 1)), {0, 0, 1, 1},
                 BlendMode::Copy, 1);
    EXPECT_EQ(context.pixel(0, 0), (std::array<std::uint8_t, 4>{128, 0, 128, 255}));
}

TEST(ImageContext, ReadsItsBytesAsBlueGreenRedAlpha) {
    ImageContext context({1, 1}, false, 1);
    context.draw(*plain(3, 3, Color::rgba(1, 0.2, 0)), {0, 0, 1, 1}, BlendMode::Copy, 1);
    EXPECT_EQ(context.pixel(0, 0), (std::array<std::uint8_t, 4>{0, 51, 255, 255}));
}

TEST(ImageContext, CopyReplacesWhatNormalCovers) {
    ImageContext context({2, 1}, false, 1);
    context.draw(*plain(2, 1, red()), {0, 0, 2, 1}, BlendMode::Normal, 1);
    const auto halfClear = plain(1, 1, Color::rgba(0, 0, 1, 0.5));
    context.draw(*halfClear, {0, 0, 1, 1}, BlendMode::Normal, 1);
    context.draw(*halfClear, {1, 0, 1, 1}, BlendMode::Copy, 1);
    EXPECT_EQ(context.pixel(0, 0)[3], 255);
    EXPECT_NEAR(context.pixel(0, 0)[2], 127, 1);
    EXPECT_NEAR(context.pixel(1, 0)[3], 128, 1);
    EXPECT_EQ(context.pixel(1, 0)[2], 0);
}

TEST(ImageContext, WithoutInterpolationTakesSinglePixels) {
    ImageContext context({1, 1}, false, 1);
    context.setInterpolationQuality(InterpolationQuality::None);
    context.draw(*checkerboard(2, Color::black(), white()), {0, 0, 1, 1}, BlendMode::Copy, 1);
    const int level = context.pixel(0, 0)[0];
    EXPECT_TRUE(level == 0 || level == 255) << level;
}

} // namespace
} // namespace toolkit
