// Looks over an XML property list before anything is built from it.
//
// Any thread; nothing is allocated.
#pragma once

#include "platform/foundation/PropertyListCoding.h"

#include <string_view>

namespace foundation {

/// Whether `text` is made of a property list's elements alone, rightly nested, within the limits of depth and
/// nodes, in valid UTF-8, with the five named entities and character references only and without declarations
/// of its own.
bool isSoundXmlPropertyList(std::string_view text, const PropertyListLimits& limits);

} // namespace foundation
