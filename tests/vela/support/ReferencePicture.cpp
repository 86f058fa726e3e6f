#include "tests/vela/support/ReferencePicture.h"

#include "platform/toolkit/rendering/ImageFile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

using toolkit::Image;

namespace tests {

namespace {

constexpr int bytesPerPixel = 4;

std::shared_ptr<const Image> readPicture(const std::filesystem::path& path, double scale) {
    std::ifstream stream(path, std::ios::binary);
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(stream), {}};
    return stream ? toolkit::decodeImage(bytes, scale) : nullptr;
}

void writePicture(const std::filesystem::path& path, const Image& picture) {
    std::filesystem::create_directories(path.parent_path());
    const auto png = toolkit::encodePng(picture);
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
}

bool sameSize(const Image& a, const Image& b) {
    return a.pixelWidth() == b.pixelWidth() && a.pixelHeight() == b.pixelHeight();
}

bool samePixel(const Image& a, const Image& b, int x, int y) {
    const auto* left = a.pixels().data() + y * a.bytesPerRow() + x * bytesPerPixel;
    const auto* right = b.pixels().data() + y * b.bytesPerRow() + x * bytesPerPixel;
    return std::equal(left, left + bytesPerPixel, right);
}

/// White where two pictures of one size differ, black elsewhere; the second is how many pixels differ.
std::pair<Image, int> difference(const Image& a, const Image& b) {
    const int width = a.pixelWidth(), height = a.pixelHeight();
    std::vector<std::uint8_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * bytesPerPixel);
    int count = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool same = samePixel(a, b, x, y);
            count += !same;
            const std::uint8_t shade = same ? 0 : 255;
            pixels.insert(pixels.end(), {shade, shade, shade, 255});
        }
    return {Image(width, height, width * bytesPerPixel, std::move(pixels), a.scale()), count};
}

} // namespace

testing::AssertionResult matchesPicture(const std::string& name, const Image& picture) {
    const auto expected =
        readPicture(std::filesystem::path(VELA_SOURCE_DIR) / "tests/references" / name, picture.scale());
    const auto actual = std::filesystem::path(VELA_BINARY_DIR) / "tests/actual" / name;
    if (!expected || !sameSize(*expected, picture)) {
        writePicture(actual, picture);
        return testing::AssertionFailure()
               << (expected ? "another size than" : "there is no") << " tests/references/" << name
               << "; what was drawn is " << actual;
    }
    const auto [differing, count] = difference(*expected, picture);
    if (count == 0)
        return testing::AssertionSuccess();
    writePicture(actual, picture);
    writePicture(actual.parent_path() / (actual.stem().string() + "-difference.png"), differing);
    return testing::AssertionFailure()
           << count << " pixels differ from tests/references/" << name << "; what was drawn is " << actual;
}

} // namespace tests
