// Arithmetic on natural numbers of any length, written as strings of the digits '0' to '9' with the most
// significant one first. The empty string is zero, and no result begins with '0'.
#pragma once

#include <string>

namespace calculatorplugin::digits {

/// Without leading zeros.
std::string trimmed(std::string number);
/// Negative, 0 or positive, as the first is smaller, equal or greater.
int compare(const std::string& first, const std::string& second);
std::string sum(const std::string& first, const std::string& second);
/// `greater` must not be the smaller one.
std::string difference(const std::string& greater, const std::string& smaller);
std::string product(const std::string& first, const std::string& second);

struct Division {
    std::string quotient;
    std::string remainder;
};
/// `divisor` must not be zero.
Division quotient(const std::string& dividend, const std::string& divisor);

} // namespace calculatorplugin::digits
