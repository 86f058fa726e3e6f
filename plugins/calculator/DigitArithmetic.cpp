#include "DigitArithmetic.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace calculatorplugin::digits {

namespace {

/// The digit that stands `place` places left of the last one, or 0 beyond the first.
int digitAt(const std::string& number, std::size_t place) {
    return place < number.size() ? number[number.size() - 1 - place] - '0' : 0;
}

std::string fromLastToFirst(std::string reversed) {
    std::reverse(reversed.begin(), reversed.end());
    return trimmed(std::move(reversed));
}

} // namespace

std::string trimmed(std::string number) {
    number.erase(0, std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

int compare(const std::string& first, const std::string& second) {
    if (first.size() != second.size())
        return first.size() < second.size() ? -1 : 1;
    return first.compare(second);
}

std::string sum(const std::string& first, const std::string& second) {
    std::string reversed;
    int carry = 0;
    for (std::size_t place = 0; place < std::max(first.size(), second.size()) || carry != 0; ++place) {
        const int total = digitAt(first, place) + digitAt(second, place) + carry;
        reversed += static_cast<char>('0' + total % 10);
        carry = total / 10;
    }
    return fromLastToFirst(std::move(reversed));
}

std::string difference(const std::string& greater, const std::string& smaller) {
    std::string reversed;
    int borrowed = 0;
    for (std::size_t place = 0; place < greater.size(); ++place) {
        const int rest = digitAt(greater, place) - digitAt(smaller, place) - borrowed;
        borrowed = rest < 0 ? 1 : 0;
        reversed += static_cast<char>('0' + rest + 10 * borrowed);
    }
    return fromLastToFirst(std::move(reversed));
}

std::string product(const std::string& first, const std::string& second) {
    std::vector<int> columns(first.size() + second.size() + 1, 0);
    for (std::size_t i = 0; i < first.size(); ++i)
        for (std::size_t j = 0; j < second.size(); ++j)
            columns[i + j] += digitAt(first, i) * digitAt(second, j);
    std::string reversed;
    int carry = 0;
    for (const int column : columns) {
        const int total = column + carry;
        reversed += static_cast<char>('0' + total % 10);
        carry = total / 10;
    }
    return fromLastToFirst(std::move(reversed));
}

Division quotient(const std::string& dividend, const std::string& divisor) {
    Division division;
    for (const char digit : dividend) {
        division.remainder = trimmed(division.remainder + digit);
        char times = '0';
        while (compare(division.remainder, divisor) >= 0) {
            division.remainder = difference(division.remainder, divisor);
            ++times;
        }
        division.quotient += times;
    }
    division.quotient = trimmed(std::move(division.quotient));
    return division;
}

} // namespace calculatorplugin::digits
