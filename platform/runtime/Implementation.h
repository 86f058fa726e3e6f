// What a selector stands for in one class: a callable, kept with its exact C++ signature.
//
// A call through another signature would read its arguments as garbage, so it is refused with
// SignatureMismatch instead. Immutable and cheap to copy.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <typeindex>

namespace runtime {

class Object;

struct SignatureMismatch : std::logic_error {
    using std::logic_error::logic_error;
};

class Implementation {
public:
    Implementation() = default;

    template <class R, class... A>
    static Implementation of(std::function<R(Object&, A...)> function) {
        Implementation result;
        result.function_ = std::make_shared<std::function<R(Object&, A...)>>(std::move(function));
        result.signature_ = typeid(R(A...));
        return result;
    }

    explicit operator bool() const { return function_ != nullptr; }
    std::type_index signature() const { return signature_; }

    /// The callable, when it was made with exactly this signature, else null.
    template <class R, class... A>
    const std::function<R(Object&, A...)>* as() const {
        if (signature_ != std::type_index(typeid(R(A...))))
            return nullptr;
        return static_cast<const std::function<R(Object&, A...)>*>(function_.get());
    }

private:
    std::shared_ptr<void> function_;
    std::type_index signature_ = typeid(void);
};

} // namespace runtime
