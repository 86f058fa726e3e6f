#include "platform/foundation/NumberFormatter.h"

#include <cmath>
#include <cstdio>

namespace foundation {

namespace {

/// A digit, a comma between the thousands where there are any.
std::string grouped(std::string digits) {
    for (std::ptrdiff_t at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), ",");
    return digits;
}

} // namespace

std::string NumberFormatter::stringFromNumber(double number) const {
    if (std::isnan(number))
        return "NaN";
    const bool percent = style_ == NumberFormatterStyle::Percent;
    const double units = std::nearbyint(percent ? number * 100 : number);
    std::string text = "∞";
    if (std::isfinite(units)) {
        char digits[320];
        std::snprintf(digits, sizeof digits, "%.0f", std::abs(units));
        text = grouped(digits);
    }
    return (units < 0 ? "-" : "") + text + (percent ? "%" : "");
}

} // namespace foundation
