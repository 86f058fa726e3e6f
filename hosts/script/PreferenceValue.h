// Preference values as people write them, in scripts and on the command line: a type and a text.
#pragma once

#include "platform/foundation/PropertyList.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace script {

/// The whole of `text` as a finite number; throws std::invalid_argument naming `what` otherwise.
double parseNumber(std::string_view text, std::string_view what);

/// A value of `type` "bool" (true, false, yes, no, on, off, 1 or 0), "number" (whole numbers stay whole) or
/// "string". Throws std::invalid_argument with the reason.
foundation::PropertyList parsePreferenceValue(std::string_view type, const std::string& text);

/// Throws std::invalid_argument unless `key` can be the key of a preference.
void checkPreferenceKey(const std::string& key);

} // namespace script
