#include "Calculator.h"

#include "NumberText.h"

#include <utility>

namespace calculatorplugin {

namespace {

bool isDigitKey(Key key) {
    return key >= Key::Zero && key <= Key::Nine;
}

/// What still means something while "Error" is shown.
bool endsError(Key key) {
    return isDigitKey(key) || key == Key::Point || key == Key::MemoryRecall || key == Key::Clear;
}

} // namespace

Calculator::Calculator(CalculatorState state) : state_(std::move(state)) {}

void Calculator::press(Key key) {
    if (state_.isError && key != Key::MemoryClear) {
        if (!endsError(key))
            return;
        reset();
    }
    if (isDigitKey(key))
        return pressDigit(static_cast<char>('0' + static_cast<int>(key)));
    if (pressMemoryKey(key))
        return;
    switch (key) {
    case Key::Point:
        return pressPoint();
    case Key::Add:
        return pressOperator(Operator::Add);
    case Key::Subtract:
        return pressOperator(Operator::Subtract);
    case Key::Multiply:
        return pressOperator(Operator::Multiply);
    case Key::Divide:
        return pressOperator(Operator::Divide);
    case Key::Equals:
        return pressEquals();
    case Key::Percent:
        return pressPercent();
    case Key::Sign:
        return pressSign();
    case Key::Clear:
        return pressClear();
    case Key::Backspace:
        return pressBackspace();
    default:
        return;
    }
}

bool Calculator::pressMemoryKey(Key key) {
    switch (key) {
    case Key::MemoryClear:
        state_.memory.reset();
        return true;
    case Key::MemoryAdd:
        addToMemory(shownValue());
        return true;
    case Key::MemorySubtract:
        addToMemory(shownValue().negated());
        return true;
    case Key::MemoryRecall:
        recallMemory();
        return true;
    default:
        return false;
    }
}

void Calculator::pressDigit(char digit) {
    if (state_.operand != Operand::Typed)
        beginTyping("0");
    std::string& typed = state_.typed;
    if (typed == "0" || typed == "-0")
        typed.back() = digit;
    else if (isTypedNumber(typed + digit))
        typed += digit;
}

void Calculator::pressPoint() {
    if (state_.operand != Operand::Typed)
        beginTyping("0");
    if (state_.typed.find('.') == std::string::npos)
        state_.typed += '.';
}

void Calculator::pressOperator(Operator operation) {
    if (state_.operand == Operand::Awaited && state_.beforeOperator) {
        state_.chain = state_.beforeOperator->chain;
        state_.value = state_.beforeOperator->value;
    }
    const Decimal operand = shownValue();
    state_.beforeOperator = {state_.chain, operand};
    state_.repetition.reset();
    state_.finished.clear();
    show(state_.chain.push(operation, operand), Operand::Awaited);
}

void Calculator::pressEquals() {
    const Decimal operand = shownValue();
    if (const auto& innermost = state_.chain.innermost()) {
        state_.finished = state_.chain.text() + " " + NumberText::ofValue(operand) + " =";
        state_.repetition = {innermost->operation, operand};
        show(state_.chain.finish(operand), Operand::Given);
    } else if (state_.repetition) {
        const auto [operation, right] = *state_.repetition;
        state_.finished = NumberText::ofValue(operand) + " " + std::string(symbolOf(operation)) + " " +
                          NumberText::ofValue(right) + " =";
        show(apply(operation, operand, right), Operand::Given);
    } else {
        show(operand, Operand::Given);
    }
}

void Calculator::pressPercent() {
    const Decimal hundredth = *Decimal::parse("0.01");
    std::optional<Decimal> value = Decimal::product(shownValue(), hundredth);
    const auto& innermost = state_.chain.innermost();
    if (value && innermost && !bindsTighter(innermost->operation))
        value = Decimal::product(innermost->left, *value);
    state_.finished.clear();
    show(value, Operand::Given);
}

void Calculator::pressSign() {
    if (state_.operand == Operand::Given && !state_.value.isZero()) {
        state_.finished.clear();
        return show(shownValue().negated(), Operand::Given);
    }
    if (state_.operand != Operand::Typed)
        return beginTyping("-0");
    if (state_.typed.front() == '-')
        state_.typed.erase(0, 1);
    else
        state_.typed.insert(0, 1, '-');
}

bool Calculator::clearsNumberOnly() const {
    if (state_.isError || state_.operand == Operand::Awaited)
        return false;
    return state_.operand == Operand::Typed ? state_.typed != "0" : !state_.chain.empty();
}

void Calculator::pressClear() {
    if (clearsNumberOnly())
        beginTyping("0");
    else
        reset();
}

void Calculator::pressBackspace() {
    if (state_.operand != Operand::Typed)
        return;
    state_.typed.pop_back();
    if (state_.typed.empty() || state_.typed == "-")
        state_.typed = "0";
}

void Calculator::addToMemory(const Decimal& number) {
    const std::optional<Decimal> total = Decimal::sum(state_.memory.value_or(Decimal()), number);
    if (!total)
        return show(std::nullopt, Operand::Given);
    state_.memory = total;
    if (state_.operand == Operand::Typed)
        show(shownValue(), Operand::Given);
}

void Calculator::recallMemory() {
    state_.finished.clear();
    show(state_.memory.value_or(Decimal()), Operand::Given);
}

Decimal Calculator::shownValue() const {
    return state_.operand == Operand::Typed ? Decimal::parse(state_.typed).value_or(Decimal()) : state_.value;
}

void Calculator::beginTyping(std::string text) {
    state_.operand = Operand::Typed;
    state_.typed = std::move(text);
    state_.value = Decimal();
    state_.beforeOperator.reset();
    state_.finished.clear();
}

void Calculator::show(const std::optional<Decimal>& value, Operand operand) {
    if (!value) {
        reset();
        state_.isError = true;
        return;
    }
    state_.value = *value;
    state_.typed.clear();
    state_.operand = operand;
    if (operand != Operand::Awaited)
        state_.beforeOperator.reset();
}

void Calculator::reset() {
    CalculatorState fresh;
    fresh.memory = std::move(state_.memory);
    state_ = std::move(fresh);
}

std::string Calculator::display() const {
    if (state_.isError)
        return "Error";
    return state_.operand == Operand::Typed ? NumberText::ofTyping(state_.typed)
                                            : NumberText::ofValue(state_.value);
}

std::string Calculator::calculation() const {
    return state_.chain.empty() ? state_.finished : state_.chain.text();
}

std::optional<Operator> Calculator::awaitingOperator() const {
    if (state_.operand != Operand::Awaited || !state_.chain.innermost())
        return std::nullopt;
    return state_.chain.innermost()->operation;
}

} // namespace calculatorplugin
