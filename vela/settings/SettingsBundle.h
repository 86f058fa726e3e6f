// The files of the settings bundle.
#pragma once

#include <string>

namespace vela::bundle {

/// Device path of the bundle's file of that name.
std::string pathOf(const std::string& fileName);
/// What the guide says first: one paragraph. Empty when the file is missing.
std::string introduction();

} // namespace vela::bundle
