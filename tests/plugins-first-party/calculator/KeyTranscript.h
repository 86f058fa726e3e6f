// Keys written as words: "2 + 3 × 4 =", where "±" is the sign key, "C" clears, "<" is the swipe over the
// display, and "12.5" is five keys.
#pragma once

#include "plugins/calculator/Calculator.h"

#include <string>

namespace calculatorplugin {

void pressAll(Calculator& calculator, const std::string& words);
/// What a new calculator shows after these keys.
std::string displayAfter(const std::string& words);

} // namespace calculatorplugin
