// Looks over a binary property list before anything is built from it.
//
// Any thread. Objects of a binary list name each other by number, so that a small file can stand for an
// endless or an enormous tree; the check walks that tree as a reader would build it and gives up at the
// limits.
#pragma once

#include "platform/foundation/PropertyListCoding.h"

#include <cstdint>
#include <span>

namespace foundation {

/// Whether every table, object and reference lies inside the file, and the tree that they make stays within
/// the limits of depth and nodes, its texts and data together within the limit of bytes.
bool isSoundBinaryPropertyList(std::span<const std::uint8_t> bytes, const PropertyListLimits& limits);

} // namespace foundation
