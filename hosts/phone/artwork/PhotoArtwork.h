// The pictures of the photo library: landscapes and abstractions, each drawn by code from its number.
#pragma once

#include "platform/toolkit/rendering/Image.h"

namespace phone {

/// Photograph `number` (from 0); the same number always gives the same picture.
std::shared_ptr<const toolkit::Image> drawPhoto(int number, toolkit::Size size, double scale);

/// A line about a photograph: what it shows.
std::string photoTitle(int number);

} // namespace phone
