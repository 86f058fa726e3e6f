// A truth value as an object, so that an instance variable that holds one can be read by its name.
#pragma once

#include "platform/runtime/Class.h"

namespace runtime {

class Boolean : public Object {
    RUNTIME_CLASS()
public:
    explicit Boolean(bool value = false) : value_(value) {}

    bool value() const { return value_; }
    void setValue(bool value) { value_ = value; }

private:
    bool value_;
};

} // namespace runtime
