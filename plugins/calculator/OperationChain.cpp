#include "OperationChain.h"

#include "NumberText.h"

#include <utility>

namespace calculatorplugin {

namespace {

std::optional<Decimal> done(std::optional<PendingOperation>& pending, std::optional<Decimal> operand) {
    if (!pending || !operand)
        return operand;
    const PendingOperation operation = *std::exchange(pending, std::nullopt);
    return apply(operation.operation, operation.left, *operand);
}

std::string textOf(const PendingOperation& pending) {
    return NumberText::ofValue(pending.left) + " " + std::string(symbolOf(pending.operation));
}

} // namespace

std::optional<Decimal> OperationChain::push(Operator operation, const Decimal& operand) {
    std::optional<Decimal> value = done(product_, operand);
    if (!bindsTighter(operation))
        value = done(sum_, value);
    if (value)
        (bindsTighter(operation) ? product_ : sum_) = PendingOperation{*value, operation};
    return value;
}

std::optional<Decimal> OperationChain::finish(const Decimal& operand) {
    return done(sum_, done(product_, operand));
}

std::string OperationChain::text() const {
    std::string text = sum_ ? textOf(*sum_) : "";
    if (product_)
        text += (text.empty() ? "" : " ") + textOf(*product_);
    return text;
}

OperationChain OperationChain::restored(std::optional<PendingOperation> sum,
                                        std::optional<PendingOperation> product) {
    OperationChain chain;
    if (sum && !bindsTighter(sum->operation))
        chain.sum_ = std::move(sum);
    if (product && bindsTighter(product->operation))
        chain.product_ = std::move(product);
    return chain;
}

} // namespace calculatorplugin
