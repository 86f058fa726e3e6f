// Pictures from and to files. Files are hostile: their pixel count is read and bounded before decoding.
#pragma once

#include "platform/toolkit/rendering/Image.h"

namespace toolkit {

/// The largest picture that is decoded, in pixels.
inline constexpr std::int64_t maximumImagePixels = 40'000'000;

/// A PNG, JPEG, GIF, BMP or WebP picture; null for anything else, damaged, or larger than the limit.
std::shared_ptr<const Image> decodeImage(std::span<const std::uint8_t> bytes, double scale);
/// The picture as PNG; empty when that fails.
std::vector<std::uint8_t> encodePng(const Image& image);
/// Loads the picture at a device path, trying for "name.png" the variant of the screen's scale
/// ("name@2x.png") first; that one has the screen's scale, the plain one a pixel a point. Null when neither
/// can be read.
std::shared_ptr<const Image> loadImageNamed(const std::string& devicePath, double screenScale);

} // namespace toolkit
