// Changing classes at run time: replacing a method, and adding one.
//
// Both find the class by name and leave everything as it was when something is missing. There is no way back:
// hooks stay until the process ends. Main thread, or the thread that loads a library.
#pragma once

#include "platform/runtime/Class.h"

namespace runtime {

/// Replaces `selector` in the class named `className` and hands back the replaced implementation through
/// `original`. An inherited method is overridden in the named class alone. Answers false, and changes
/// nothing, when the class is missing, has no such method, or has one of another signature.
template <class R, class... A>
bool replaceMethod(const std::string& className, Selector selector,
                   std::function<R(Object&, A...)> replacement, std::function<R(Object&, A...)>& original) {
    Class* cls = Registry::shared().find(className);
    if (!cls)
        return false;
    const Implementation current = cls->find(selector);
    const auto* function = current.template as<R, A...>();
    if (!function)
        return false;
    original = *function;
    cls->setMethod(selector, Implementation::of(std::move(replacement)));
    return true;
}

/// Adds `selector` to the class named `className`. Answers false, and changes nothing, when the class is
/// missing or itself already has a method of that name.
template <class R, class... A>
bool addMethod(const std::string& className, Selector selector, std::function<R(Object&, A...)> method) {
    Class* cls = Registry::shared().find(className);
    if (!cls || cls->hasOwnMethod(selector))
        return false;
    cls->setMethod(selector, Implementation::of(std::move(method)));
    return true;
}

} // namespace runtime
