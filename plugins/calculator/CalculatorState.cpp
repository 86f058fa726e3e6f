#include "CalculatorState.h"

#include "NumberText.h"

#include <algorithm>
#include <cstddef>

namespace calculatorplugin {

namespace {

constexpr std::size_t longestFinished = 200;
constexpr std::string_view operatorLetters = "+-*/";

std::string line(std::string_view key, std::string_view value) {
    return std::string(key) + " " + std::string(value) + "\n";
}

std::string line(std::string_view key, Operator operation, const Decimal& number) {
    return line(key,
                std::string(1, operatorLetters[static_cast<std::size_t>(operation)]) + " " + number.text());
}

std::string lines(const std::string& prefix, const OperationChain& chain) {
    std::string text;
    if (const auto& sum = chain.pendingSum())
        text += line(prefix + "sum", sum->operation, sum->left);
    if (const auto& product = chain.pendingProduct())
        text += line(prefix + "product", product->operation, product->left);
    return text;
}

std::optional<PendingOperation> parsePending(std::string_view text) {
    if (text.size() < 3 || text[1] != ' ')
        return std::nullopt;
    const std::size_t letter = operatorLetters.find(text.front());
    const std::optional<Decimal> number = Decimal::parse(text.substr(2));
    if (letter == std::string_view::npos || !number)
        return std::nullopt;
    return PendingOperation{*number, static_cast<Operator>(letter)};
}

/// The value of the last line with `key`; empty when there is none.
std::string_view valueOf(std::string_view key, std::string_view text) {
    std::string_view value;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view current = text.substr(0, end);
        if (current.size() > key.size() && current.substr(0, key.size()) == key && current[key.size()] == ' ')
            value = current.substr(key.size() + 1);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return value;
}

OperationChain readChain(const std::string& prefix, std::string_view text) {
    return OperationChain::restored(parsePending(valueOf(prefix + "sum", text)),
                                    parsePending(valueOf(prefix + "product", text)));
}

} // namespace

bool isTypedNumber(std::string_view text) {
    const auto digits = std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    return digits >= 1 && digits <= NumberText::mostDigits && text.find('e') == std::string_view::npos &&
           text.find('.') != 0 && text.find("-.") != 0 && Decimal::parse(text).has_value();
}

std::string written(const CalculatorState& state) {
    std::string text;
    if (state.isError)
        text += line("error", "yes");
    switch (state.operand) {
    case Operand::Typed:
        text += line("typed", state.typed);
        break;
    case Operand::Given:
        text += line("given", state.value.text());
        break;
    case Operand::Awaited:
        text += line("awaited", state.value.text());
        break;
    }
    text += lines("", state.chain);
    if (state.beforeOperator)
        text += lines("before-", state.beforeOperator->chain) +
                line("before-value", state.beforeOperator->value.text());
    if (state.repetition)
        text += line("repetition", state.repetition->operation, state.repetition->right);
    if (!state.finished.empty())
        text += line("finished", state.finished);
    if (state.memory)
        text += line("memory", state.memory->text());
    return text;
}

CalculatorState readState(std::string_view text) {
    CalculatorState state;
    state.memory = Decimal::parse(valueOf("memory", text));
    if (valueOf("error", text) == "yes") {
        state.isError = true;
        return state;
    }
    state.chain = readChain("", text);
    if (const std::string_view typed = valueOf("typed", text); isTypedNumber(typed)) {
        state.operand = Operand::Typed;
        state.typed = typed;
    } else if (const auto awaited = Decimal::parse(valueOf("awaited", text));
               awaited && !state.chain.empty()) {
        state.operand = Operand::Awaited;
        state.value = *awaited;
        if (const auto before = Decimal::parse(valueOf("before-value", text)))
            state.beforeOperator = {readChain("before-", text), *before};
    } else {
        state.value = Decimal::parse(valueOf("given", text)).value_or(Decimal());
    }
    if (const auto repetition = parsePending(valueOf("repetition", text)))
        state.repetition = {repetition->operation, repetition->left};
    if (const std::string_view finished = valueOf("finished", text); finished.size() <= longestFinished)
        state.finished = finished;
    return state;
}

} // namespace calculatorplugin
