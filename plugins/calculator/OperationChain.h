// The operations that have been keyed in and still wait for their right-hand number: at most a sum and, to be
// done before it, a product. In "2 + 3 ×" both wait.
#pragma once

#include "Operator.h"

#include <optional>
#include <string>

namespace calculatorplugin {

struct PendingOperation {
    Decimal left;
    Operator operation = Operator::Add;
    friend bool operator==(const PendingOperation&, const PendingOperation&) = default;
};

class OperationChain {
public:
    bool empty() const { return !sum_ && !product_; }
    /// The one that takes the next number.
    const std::optional<PendingOperation>& innermost() const { return product_ ? product_ : sum_; }
    const std::optional<PendingOperation>& pendingSum() const { return sum_; }
    const std::optional<PendingOperation>& pendingProduct() const { return product_; }

    /// Gives `operand` to what waits for it, does what can be done by now, and lets `operation` wait.
    /// Returns the number to show; nothing when there is none, the chain is then not to be used any more.
    std::optional<Decimal> push(Operator operation, const Decimal& operand);
    /// Does all of it, so that nothing waits any more; nothing when there is no result.
    std::optional<Decimal> finish(const Decimal& operand);

    /// "2 + 3 ×"
    std::string text() const;

    /// Takes up operations that waited before.
    static OperationChain restored(std::optional<PendingOperation> sum,
                                   std::optional<PendingOperation> product);

    friend bool operator==(const OperationChain&, const OperationChain&) = default;

private:
    std::optional<PendingOperation> sum_;     // an addition or subtraction
    std::optional<PendingOperation> product_; // a multiplication or division
};

} // namespace calculatorplugin
