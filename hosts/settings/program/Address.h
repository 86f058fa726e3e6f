// Addresses of the product's configuration.
#pragma once

#include <string>

namespace settings {

/// An address as programs of this machine understand it: "file:" addresses name files of the device, which
/// lie below the device root. Empty for one that would leave it; all others stay as they are.
std::string realAddress(const std::string& address);

} // namespace settings
