// The calculator behind the keys.
//
// Every key takes effect at once, with the usual precedence: 2 + 3 × 4 = is 14, and after "2 + 3 ×" the
// display shows 3. An operator after an operator replaces it. "=" without a number takes the shown one
// (5 + = is 10), and once more repeats the last operation (2 + 3 = = is 8), also with another number
// (10 = is then 13). A percentage after + or − is one of what stands before it (200 + 10 % is 200 + 20), else
// a hundredth. M+ and M− add the shown number to the memory or take it from there, and MR shows the memory; a
// digit after them begins another number. What has no result shows "Error" until a number is begun, recalled
// or cleared.
#pragma once

#include "CalculatorState.h"
#include "Key.h"

#include <optional>
#include <string>

namespace calculatorplugin {

class Calculator {
public:
    Calculator() = default;
    explicit Calculator(CalculatorState state);

    void press(Key key);

    /// The shown number.
    std::string display() const;
    /// The line above it: what waits ("2 + 3 ×"), or what has been reckoned ("2 + 3 =").
    std::string calculation() const;
    /// The operator whose number is awaited.
    std::optional<Operator> awaitingOperator() const;
    /// Whether the clear key takes back the shown number alone ("C") and not everything but the memory
    /// ("AC").
    bool clearsNumberOnly() const;
    bool hasMemory() const { return state_.memory.has_value(); }
    const CalculatorState& state() const { return state_; }

private:
    void pressDigit(char digit);
    void pressPoint();
    void pressOperator(Operator operation);
    void pressEquals();
    void pressPercent();
    void pressSign();
    void pressClear();
    void pressBackspace();
    void addToMemory(const Decimal& number);
    void recallMemory();

    bool pressMemoryKey(Key key);
    Decimal shownValue() const;
    void beginTyping(std::string text);
    /// Shows a number, or an error when there is none.
    void show(const std::optional<Decimal>& value, Operand operand);
    void reset();

    CalculatorState state_;
};

} // namespace calculatorplugin
