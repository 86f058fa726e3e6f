// The four operations.
#pragma once

#include "Decimal.h"

#include <optional>
#include <string_view>

namespace calculatorplugin {

enum class Operator { Add, Subtract, Multiply, Divide };

/// Multiplications and divisions are done before additions and subtractions.
inline bool bindsTighter(Operator operation) {
    return operation == Operator::Multiply || operation == Operator::Divide;
}

inline std::string_view symbolOf(Operator operation) {
    switch (operation) {
    case Operator::Add:
        return "+";
    case Operator::Subtract:
        return "\u2212";
    case Operator::Multiply:
        return "\u00d7";
    case Operator::Divide:
        break;
    }
    return "\u00f7";
}

/// Nothing when there is no result.
inline std::optional<Decimal> apply(Operator operation, const Decimal& left, const Decimal& right) {
    switch (operation) {
    case Operator::Add:
        return Decimal::sum(left, right);
    case Operator::Subtract:
        return Decimal::difference(left, right);
    case Operator::Multiply:
        return Decimal::product(left, right);
    case Operator::Divide:
        break;
    }
    return Decimal::quotient(left, right);
}

} // namespace calculatorplugin
