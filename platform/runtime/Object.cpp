#include "platform/runtime/Object.h"

#include "platform/runtime/Class.h"

namespace runtime {

Object::~Object() = default;

Class& Object::staticClass() {
    static Class& cls = ClassBuilder<Object>("NSObject", nullptr).build();
    return cls;
}

void Object::setAssociatedObject(const std::string& key, std::any value) {
    if (value.has_value())
        associated_[key] = std::move(value);
    else
        associated_.erase(key);
}

const std::any& Object::associatedObject(const std::string& key) const {
    static const std::any none;
    auto found = associated_.find(key);
    return found == associated_.end() ? none : found->second;
}

} // namespace runtime
