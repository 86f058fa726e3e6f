// Sending messages: a selector bound to a C++ signature, called like a function.
//
//     const runtime::Message<float(std::int64_t)> leftSizeForOrientation{"leftSizeForOrientation:"};
//     float points = leftSizeForOrientation(springBoard, 3);
//
// A message to a null pointer does nothing and answers a zero value. A receiver that lacks the method makes
// the call throw UnrecognizedSelector; ask respondsTo() first where that may be. Main thread only.
#pragma once

#include "platform/runtime/Class.h"

#include <stdexcept>

namespace runtime {

struct UnrecognizedSelector : std::logic_error {
    using std::logic_error::logic_error;
};

inline bool respondsTo(const Object& receiver, Selector selector) {
    return static_cast<bool>(receiver.isa().find(selector));
}
inline bool respondsTo(const Object* receiver, Selector selector) {
    return receiver && respondsTo(*receiver, selector);
}

template <class Signature>
class Message;

template <class R, class... A>
class Message<R(A...)> {
public:
    explicit Message(Selector selector) : selector_(selector) {}

    Selector selector() const { return selector_; }

    R operator()(Object& receiver, A... arguments) const {
        const Implementation implementation = receiver.isa().find(selector_);
        if (!implementation)
            throw UnrecognizedSelector(receiver.isa().name() + " does not respond to " + selector_.name());
        const auto* function = implementation.template as<R, A...>();
        if (!function)
            throw SignatureMismatch(receiver.isa().name() + " answers " + selector_.name() +
                                    " with another signature");
        return (*function)(receiver, std::move(arguments)...);
    }
    R operator()(Object* receiver, A... arguments) const {
        return receiver ? (*this)(*receiver, std::move(arguments)...) : R();
    }

private:
    Selector selector_;
};

} // namespace runtime
