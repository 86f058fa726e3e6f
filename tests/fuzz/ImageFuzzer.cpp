// Pictures of any bytes: nothing crashes, and what is decoded keeps to the limit and can be written as PNG.
//
// The limit is tried on large pictures by tests; here only small ones are written again, which is quicker.
#include "platform/toolkit/rendering/ImageFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = toolkit::decodeImage({data, size}, 2);
    if (!image)
        return 0;
    const auto pixels = static_cast<std::int64_t>(image->pixelWidth()) * image->pixelHeight();
    if (pixels <= 0 || pixels > toolkit::maximumImagePixels)
        std::abort();
    constexpr std::int64_t small = 256 * 256;
    if (pixels <= small && toolkit::encodePng(*image).empty())
        std::abort();
    return 0;
}
