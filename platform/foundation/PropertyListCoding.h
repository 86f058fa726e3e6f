// Property lists as bytes: XML and binary in, XML out.
//
// Input is hostile: its size and its depth are bounded before anything is built from it, and every malformed
// input answers nothing. Any thread.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <optional>
#include <span>
#include <string>

namespace foundation {

struct PropertyListLimits {
    std::size_t maximumBytes = 64 * 1024 * 1024;
    std::size_t maximumDepth = 128;
    std::size_t maximumNodes = 2'000'000;
};

/// The value that `bytes` (XML or binary property list) hold; nothing when they are no property list or pass
/// the limits.
std::optional<PropertyList> decodePropertyList(std::span<const std::uint8_t> bytes,
                                               const PropertyListLimits& limits = {});

/// `value` as an XML property list. Strings are written so that reading gives the same bytes back; what XML
/// cannot hold (control characters, broken UTF-8) is left out of them.
std::string encodePropertyList(const PropertyList& value);

} // namespace foundation
