// JSON texts as property-list values.
//
// Input is hostile: its size, depth and number of values are bounded while it is read. Any thread.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <optional>
#include <span>

namespace foundation {

struct JsonLimits {
    std::size_t maximumBytes = 16 * 1024 * 1024;
    std::size_t maximumDepth = 64;
    std::size_t maximumValues = 1'000'000;
};

/// The value of a JSON text, of any type ("fragments" are allowed); JSON's null is nil, a repeated key has
/// its last value, an integer beyond 64 bits is a real. Nothing for what is no JSON in UTF-8 or passes the
/// limits.
std::optional<PropertyList> decodeJson(std::span<const std::uint8_t> bytes, const JsonLimits& limits = {});

} // namespace foundation
