// All that a calculator remembers, and its written form, which outlives the phone's restarts.
#pragma once

#include "Decimal.h"
#include "OperationChain.h"

#include <optional>
#include <string>
#include <string_view>

namespace calculatorplugin {

/// Where the shown number stands in the calculation.
enum class Operand {
    Typed,   // being typed: digits are added to it
    Given,   // complete: a result, a percentage, the memory; a digit begins another number
    Awaited, // the last key was an operator: the shown number is what has been reckoned so far
};

struct CalculatorState {
    /// What an operator key pressed straight after another goes back to.
    struct BeforeOperator {
        OperationChain chain;
        Decimal value;
        friend bool operator==(const BeforeOperator&, const BeforeOperator&) = default;
    };
    /// What another "=" does once more.
    struct Repetition {
        Operator operation = Operator::Add;
        Decimal right;
        friend bool operator==(const Repetition&, const Repetition&) = default;
    };

    Operand operand = Operand::Given;
    std::string typed; // while operand is Typed: "-12.50"
    Decimal value;     // while it is not
    bool isError = false;
    OperationChain chain;
    std::optional<BeforeOperator> beforeOperator;
    std::optional<Repetition> repetition;
    std::string finished; // the calculation that "=" has ended: "2 + 3 ="
    std::optional<Decimal> memory;

    friend bool operator==(const CalculatorState&, const CalculatorState&) = default;
};

/// One line for each thing remembered.
std::string written(const CalculatorState& state);
/// Anything may be handed over: what cannot be understood is as if it were not there.
CalculatorState readState(std::string_view text);
/// Whether `text` can be a number that is being typed.
bool isTypedNumber(std::string_view text);

} // namespace calculatorplugin
