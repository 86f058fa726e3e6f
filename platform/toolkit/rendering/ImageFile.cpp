#include "platform/toolkit/rendering/ImageFile.h"

#include "platform/foundation/FileManager.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <cmath>
#include <cstring>

namespace toolkit {

namespace {

struct ObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using LoaderPointer = std::unique_ptr<GdkPixbufLoader, ObjectUnref>;
using PixbufPointer = std::unique_ptr<GdkPixbuf, ObjectUnref>;

constexpr int longestSide = 32000;

bool startsWith(std::span<const std::uint8_t> bytes, std::size_t offset, std::string_view magic) {
    return bytes.size() >= offset + magic.size() &&
           std::memcmp(bytes.data() + offset, magic.data(), magic.size()) == 0;
}

/// The loader's name for the few formats that are let in; null for everything else. The loaders of the
/// machine include ones for scripted and rarely tested formats, which no outside file shall reach.
const char* formatOf(std::span<const std::uint8_t> bytes) {
    using namespace std::string_view_literals;
    if (startsWith(bytes, 0, "\x89PNG\r\n\x1a\n"sv))
        return "png";
    if (startsWith(bytes, 0, "\xff\xd8\xff"sv))
        return "jpeg";
    if (startsWith(bytes, 0, "GIF87a"sv) || startsWith(bytes, 0, "GIF89a"sv))
        return "gif";
    if (startsWith(bytes, 0, "BM"sv))
        return "bmp";
    if (startsWith(bytes, 0, "RIFF"sv) && startsWith(bytes, 8, "WEBP"sv))
        return "webp";
    return nullptr;
}

bool isWithinLimits(int width, int height) {
    return width > 0 && height > 0 && width <= longestSide && height <= longestSide &&
           static_cast<std::int64_t>(width) * height <= maximumImagePixels;
}

struct Decoding {
    bool tooLarge = false;
    int decodedRows = 0; // up to the lowest one
};

void sizePrepared(GdkPixbufLoader* loader, int width, int height, gpointer data) {
    if (isWithinLimits(width, height))
        return;
    static_cast<Decoding*>(data)->tooLarge = true;
    gdk_pixbuf_loader_set_size(loader, 0, 0); // the loaders take this as the order to give up
}

void areaUpdated(GdkPixbufLoader*, int, int y, int, int height, gpointer data) {
    auto& decoding = *static_cast<Decoding*>(data);
    decoding.decodedRows = std::max(decoding.decodedRows, y + height);
}

/// Whether a PNG file has its last chunk; the loader is content with less, and leaves the rest of the picture
/// to whatever lay in its memory.
bool hasEnd(std::span<const std::uint8_t> bytes) {
    using namespace std::string_view_literals;
    constexpr auto end = "IEND\xae\x42\x60\x82"sv;
    const auto same = [](std::uint8_t byte, char c) { return byte == static_cast<std::uint8_t>(c); };
    return std::search(bytes.begin(), bytes.end(), end.begin(), end.end(), same) != bytes.end();
}

std::uint32_t littleEndian(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return static_cast<std::uint32_t>(bytes[offset]) | static_cast<std::uint32_t>(bytes[offset + 1]) << 8 |
           static_cast<std::uint32_t>(bytes[offset + 2]) << 16 |
           static_cast<std::uint32_t>(bytes[offset + 3]) << 24;
}

/// Whether a BMP file's header and the place of its pixels lie within the file; the loader makes room for as
/// much as they claim before it looks.
bool keepsHeaderInside(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t pixelsField = 10, headerField = 14, fieldsEnd = 18;
    return bytes.size() >= fieldsEnd && littleEndian(bytes, pixelsField) <= bytes.size() &&
           littleEndian(bytes, headerField) <= bytes.size() - headerField;
}

bool isWorthDecoding(std::span<const std::uint8_t> bytes, std::string_view format) {
    return (format != "png" || hasEnd(bytes)) && (format != "bmp" || keepsHeaderInside(bytes));
}

PixbufPointer decode(std::span<const std::uint8_t> bytes, const char* format) {
    const LoaderPointer loader(gdk_pixbuf_loader_new_with_type(format, nullptr));
    if (!loader)
        return nullptr;
    Decoding decoding;
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(sizePrepared), &decoding);
    g_signal_connect(loader.get(), "area-updated", G_CALLBACK(areaUpdated), &decoding);
    // In small steps, so that nothing is decoded beyond the header of a picture that is too large.
    constexpr std::size_t step = 4096;
    bool intact = true;
    for (std::size_t offset = 0; offset < bytes.size() && intact && !decoding.tooLarge; offset += step)
        intact = gdk_pixbuf_loader_write(loader.get(), bytes.data() + offset,
                                         std::min(step, bytes.size() - offset), nullptr);
    const bool closed = gdk_pixbuf_loader_close(loader.get(), nullptr);
    if (!intact || !closed || decoding.tooLarge)
        return nullptr;
    GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!pixbuf || decoding.decodedRows < gdk_pixbuf_get_height(pixbuf))
        return nullptr;
    return PixbufPointer(gdk_pixbuf_apply_embedded_orientation(pixbuf));
}

std::uint8_t premultiplied(unsigned value, unsigned alpha) {
    return static_cast<std::uint8_t>((value * alpha + 127) / 255);
}

std::shared_ptr<const Image> imageOf(GdkPixbuf* pixbuf, double scale) {
    const int width = gdk_pixbuf_get_width(pixbuf), height = gdk_pixbuf_get_height(pixbuf);
    const int channels = gdk_pixbuf_get_n_channels(pixbuf), stride = gdk_pixbuf_get_rowstride(pixbuf);
    if (!isWithinLimits(width, height) || gdk_pixbuf_get_bits_per_sample(pixbuf) != 8 || channels < 3)
        return nullptr;
    const std::uint8_t* source = gdk_pixbuf_read_pixels(pixbuf);
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    std::uint8_t* out = pixels.data();
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* in = source + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x, in += channels, out += 4) {
            const unsigned alpha = channels == 4 ? in[3] : 255;
            out[0] = premultiplied(in[2], alpha);
            out[1] = premultiplied(in[1], alpha);
            out[2] = premultiplied(in[0], alpha);
            out[3] = static_cast<std::uint8_t>(alpha);
        }
    }
    return std::make_shared<const Image>(width, height, width * 4, std::move(pixels), scale);
}

/// "name@2x.png" for "name.png"; nothing for a scale that is no whole number above 1.
std::optional<std::string> variantPath(const std::string& devicePath, double scale) {
    const double whole = std::round(scale);
    if (whole < 2 || whole != scale || whole > 9)
        return std::nullopt;
    const std::size_t slash = devicePath.rfind('/'), dot = devicePath.rfind('.');
    const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    const std::size_t end = hasExtension ? dot : devicePath.size();
    return devicePath.substr(0, end) + "@" + std::to_string(static_cast<int>(whole)) + "x" +
           devicePath.substr(end);
}

std::shared_ptr<const Image> load(const std::string& devicePath, double scale) {
    constexpr std::size_t maximumBytes = 64 * 1024 * 1024;
    const auto bytes = foundation::FileManager::shared().read(devicePath, maximumBytes);
    return bytes ? decodeImage(*bytes, scale) : nullptr;
}

} // namespace

std::shared_ptr<const Image> decodeImage(std::span<const std::uint8_t> bytes, double scale) {
    const char* format = formatOf(bytes);
    if (!format || !isWorthDecoding(bytes, format))
        return nullptr;
    const PixbufPointer pixbuf = decode(bytes, format);
    return pixbuf ? imageOf(pixbuf.get(), scale) : nullptr;
}

std::vector<std::uint8_t> encodePng(const Image& image) {
    const int width = image.pixelWidth(), height = image.pixelHeight();
    const PixbufPointer pixbuf(gdk_pixbuf_new(GDK_COLORSPACE_RGB, TRUE, 8, width, height));
    if (!pixbuf)
        return {};
    guchar* pixels = gdk_pixbuf_get_pixels(pixbuf.get());
    const int stride = gdk_pixbuf_get_rowstride(pixbuf.get());
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* in = image.pixels().data() + static_cast<std::ptrdiff_t>(y) * image.bytesPerRow();
        guchar* out = pixels + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x, in += 4, out += 4) {
            const unsigned alpha = in[3];
            for (int channel = 0; channel < 3; ++channel)
                out[channel] =
                    alpha ? static_cast<guchar>(std::min(255u, (in[2 - channel] * 255u + alpha / 2) / alpha))
                          : 0;
            out[3] = static_cast<guchar>(alpha);
        }
    }
    gchar* buffer = nullptr;
    gsize size = 0;
    if (!gdk_pixbuf_save_to_buffer(pixbuf.get(), &buffer, &size, "png", nullptr, nullptr))
        return {};
    std::vector<std::uint8_t> result(buffer, buffer + size);
    g_free(buffer);
    return result;
}

std::shared_ptr<const Image> loadImageNamed(const std::string& devicePath, double screenScale) {
    if (const auto variant = variantPath(devicePath, screenScale))
        if (auto image = load(*variant, screenScale))
            return image;
    return load(devicePath, 1);
}

} // namespace toolkit
