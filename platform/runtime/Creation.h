// Making instances of classes that are known by name only, such as a bundle's principal class.
//
// A class whose instances may be made so announces it, once, in its .cpp file, instead of plainly registering
// itself:
//
//     RUNTIME_REGISTER_CREATABLE_CLASS(velaCell)
//
// Main thread only, after load.
#pragma once

#include "platform/runtime/Class.h"

#include <memory>
#include <string>

namespace runtime {

/// Lets createInstance() make instances of `cls` by calling `create`.
bool makeCreatable(Class& cls, Class::Factory create);

/// A new instance of the class of that name; null for a class that is not known or cannot be made so.
std::shared_ptr<Object> createInstance(const std::string& className);

/// The same, when the instance is a T; null otherwise.
template <class T>
std::shared_ptr<T> createInstanceOf(const std::string& className) {
    return std::dynamic_pointer_cast<T>(createInstance(className));
}

} // namespace runtime

/// As RUNTIME_REGISTER_CLASS, for a class with a constructor that takes nothing.
#define RUNTIME_REGISTER_CREATABLE_CLASS(Type)                                                               \
    namespace {                                                                                              \
    [[maybe_unused]] const bool creatable_##Type = runtime::makeCreatable(                                   \
        Type::staticClass(), []() -> std::shared_ptr<runtime::Object> { return std::make_shared<Type>(); }); \
    }
