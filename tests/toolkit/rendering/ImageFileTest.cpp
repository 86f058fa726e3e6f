#include "platform/toolkit/rendering/ImageFile.h"

#include "platform/foundation/FileManager.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/toolkit/rendering/PixelTesting.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace toolkit {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes fromBase64(const char* text) {
    gsize size = 0;
    guchar* bytes = g_base64_decode(text, &size);
    Bytes result(bytes, bytes + size);
    g_free(bytes);
    return result;
}

// Each 3 × 2 pixels of (200, 100, 50).
const char* const bmp = "Qk2iAAAAAAAAAIoAAAB8AAAAAwAAAAIAAAABABgAAAAAABgAAAAAAAAAAAAAAAAAAAAAAAAAAAD/AAD/AAD/"
                        "AAAAAAAA/0JHUnMAAAAAAAAAAAAA"
                        "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAEAAAAAAAAAAAAAAAAAAAAMmTIMmTIMmTI"
                        "AAAAMmTIMmTIMmTIAAAA";
const char* const gif = "R0lGODlhAwACAPAAAMhkMgAAACH5BAAAAAAALAAAAAADAAIAAAIChF8AOw==";
const char* const jpeg =
    "/9j/4AAQSkZJRgABAQAAAQABAAD/"
    "2wBDAAEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEB"
    "AQEBAQEBAQH/"
    "2wBDAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQEBAQH/"
    "wAARCAACAAMDAREAAhEBAxEB/8QAFAABAAAAAAAAAAAAAAAAAAAABv/EABQQAQAAAAAAAAAAAAAAAAAAAAD/"
    "xAAUAQEAAAAAAAAAAAAAAAAA"
    "AAAJ/8QAFBEBAAAAAAAAAAAAAAAAAAAAAP/aAAwDAQACEQMRAD8APivNg//Z";
const char* const webp = "UklGRh4AAABXRUJQVlA4TBEAAAAvAkAAAAdQsiJXpv+BiOh/AAA=";

void appendBigEndian(Bytes& bytes, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t crc(std::span<const std::uint8_t> bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const std::uint8_t byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

/// The beginning of a PNG file that claims a size, without any pixels.
Bytes pngHeader(std::uint32_t width, std::uint32_t height) {
    Bytes bytes{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    appendBigEndian(bytes, 13);
    Bytes chunk{'I', 'H', 'D', 'R'};
    appendBigEndian(chunk, width);
    appendBigEndian(chunk, height);
    chunk.insert(chunk.end(), {8, 6, 0, 0, 0});
    bytes.insert(bytes.end(), chunk.begin(), chunk.end());
    appendBigEndian(bytes, crc(chunk));
    return bytes;
}

std::shared_ptr<const Image> samplePicture(double scale = 1) {
    return Image::draw({40, 30}, scale, [](Canvas& canvas) {
        canvas.fillRect({0, 0, 20, 30}, red());
        canvas.fillRect({20, 0, 20, 30}, Color::rgba(0, 0, 1, 0.5));
    });
}

TEST(ImageFile, ReadsEveryFormatThatItKnows) {
    for (const char* text : {bmp, gif, jpeg, webp}) {
        const auto image = decodeImage(fromBase64(text), 2);
        ASSERT_TRUE(image) << text;
        EXPECT_EQ(image->pixelWidth(), 3);
        EXPECT_EQ(image->pixelHeight(), 2);
        EXPECT_EQ(image->size(), (Size{1.5, 1}));
        const Pixel pixel = pixelAt(*image, 2, 1);
        EXPECT_NEAR(pixel.red, 200, 2);
        EXPECT_NEAR(pixel.green, 100, 2);
        EXPECT_NEAR(pixel.blue, 50, 2);
        EXPECT_EQ(pixel.alpha, 255);
    }
}

TEST(ImageFile, ReadsThePngThatItWrites) {
    const auto image = samplePicture();
    const auto read = decodeImage(encodePng(*image), 1);
    ASSERT_TRUE(read);
    EXPECT_EQ(pixelAt(*read, 5, 5), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(pixelAt(*read, 25, 5), pixelAt(*image, 25, 5));
}

TEST(ImageFile, RefusesAPictureThatIsTooLargeBeforeDecodingIt) {
    for (const auto& [width, height] :
         {std::pair{30000u, 30000u}, {2000000000u, 2u}, {1u, 100000u}, {7000u, 6000u}})
        EXPECT_FALSE(decodeImage(pngHeader(width, height), 1)) << width << " x " << height;
    Bytes hugeGif = fromBase64(gif);
    hugeGif[6] = hugeGif[7] = hugeGif[8] = hugeGif[9] = 0xFF;
    EXPECT_FALSE(decodeImage(hugeGif, 1));
    Bytes hugeBmp = fromBase64(bmp);
    hugeBmp[0x14] = hugeBmp[0x18] = 0x7F;
    EXPECT_FALSE(decodeImage(hugeBmp, 1));
}

/// The most address space that this process has had, in megabytes.
long peakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmPeak:"))
            return std::stol(line.substr(7)) / 1024;
    return -1;
}

TEST(ImageFile, MakesNoRoomForAHeaderThatPointsOutsideItsFile) {
    for (const std::size_t field : {10u, 14u}) { // where the pixels lie; the header's size
        Bytes bytes = fromBase64(bmp);
        const std::uint32_t claimed = 1'900'000'000;
        for (std::size_t i = 0; i < 4; ++i)
            bytes[field + i] = static_cast<std::uint8_t>(claimed >> (8 * i));
        const long before = peakMegabytes();
        ASSERT_GT(before, 0);
        EXPECT_EQ(decodeImage(bytes, 1), nullptr);
        EXPECT_LT(peakMegabytes() - before, 100) << "field " << field;
    }
}

TEST(ImageFile, RefusesATruncatedPicture) {
    const Bytes whole = encodePng(*samplePicture());
    for (std::size_t length = 0; length + 12 < whole.size(); length += 7)
        EXPECT_FALSE(decodeImage(std::span(whole).first(length), 1)) << length;
}

TEST(ImageFile, SurvivesAnyDamagedByte) {
    for (const Bytes& whole :
         {encodePng(*samplePicture()), fromBase64(gif), fromBase64(bmp), fromBase64(jpeg), fromBase64(webp)})
        for (std::size_t at = 0; at < whole.size(); ++at)
            for (const int change : {0xFF, 0x80, 0x01}) {
                Bytes damaged = whole;
                damaged[at] ^= static_cast<std::uint8_t>(change);
                const auto image = decodeImage(damaged, 1);
                if (!image)
                    continue;
                ASSERT_LE(static_cast<std::int64_t>(image->pixelWidth()) * image->pixelHeight(),
                          maximumImagePixels);
            }
}

TEST(ImageFile, RefusesWhatIsNoPicture) {
    const auto bytes = [](std::string_view text) { return Bytes(text.begin(), text.end()); };
    EXPECT_FALSE(decodeImage({}, 1));
    EXPECT_FALSE(decodeImage(bytes("just some text, nothing more"), 1));
    EXPECT_FALSE(decodeImage(bytes("<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'/>"), 1));
    EXPECT_FALSE(decodeImage(bytes("P1 1 1 1"), 1));
    EXPECT_FALSE(decodeImage(bytes("\x89PNG\r\n\x1a\n and then rubbish of all kinds"), 1));
}

class ImageNamed : public testing::Test {
protected:
    ImageNamed() { foundation::FileManager::shared().setDeviceRoot(directory.path()); }
    void write(const std::string& path, const Image& image) {
        ASSERT_TRUE(foundation::FileManager::shared().writeAtomically(path, encodePng(image)));
    }
    tests::TemporaryDirectory directory;
};

TEST_F(ImageNamed, PrefersTheVariantOfTheScreensScale) {
    write("/icon.png", *samplePicture(1));
    write("/icon@2x.png", *samplePicture(2));
    const auto twice = loadImageNamed("/icon.png", 2), thrice = loadImageNamed("/icon.png", 3);
    ASSERT_TRUE(twice && thrice);
    EXPECT_EQ(twice->pixelWidth(), 80);
    EXPECT_EQ(twice->size(), (Size{40, 30}));
    EXPECT_EQ(thrice->pixelWidth(), 40);
    EXPECT_EQ(thrice->size(), (Size{40, 30}));
}

TEST_F(ImageNamed, IsNullWhenThereIsNone) {
    EXPECT_FALSE(loadImageNamed("/missing.png", 2));
    EXPECT_FALSE(loadImageNamed("", 2));
    EXPECT_FALSE(loadImageNamed("/../../etc/passwd", 2));
}

} // namespace
} // namespace toolkit
