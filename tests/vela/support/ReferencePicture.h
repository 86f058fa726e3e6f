// Pictures that renderings are compared with.
#pragma once

#include "platform/toolkit/rendering/Image.h"

#include <gtest/gtest.h>

#include <string>

namespace tests {

/// Whether `picture` is, pixel for pixel, that of tests/references/NAME. If it is not, or there is none, the
/// picture is written to tests/actual/NAME in the build directory, and where the two differ, white on black,
/// beside it.
testing::AssertionResult matchesPicture(const std::string& name, const toolkit::Image& picture);

} // namespace tests
