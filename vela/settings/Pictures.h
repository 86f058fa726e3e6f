// The pictures that the settings pages show: those of the settings bundle, and stored artworks.
#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/toolkit/rendering/Image.h"

#include <memory>
#include <string>

namespace vela::pictures {

/// Of the settings bundle, by file name ("icon.png"), for the screen's scale; null when it is missing.
std::shared_ptr<const toolkit::Image> ofBundle(const std::string& fileName);
/// By device path, for the screen's scale; null when it is missing.
std::shared_ptr<const toolkit::Image> atPath(const std::string& devicePath);
/// Where the artwork of this entry lies, but for the mark of its scale.
std::string artworkPath(const std::string& entry);

/// For a row's icon: read when the row is shown.
preferences::PSSpecifier::ImageSource iconOfBundle(const std::string& fileName);
preferences::PSSpecifier::ImageSource iconAtPath(const std::string& devicePath);

} // namespace vela::pictures
