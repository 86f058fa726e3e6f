#include "platform/runtime/Class.h"

namespace runtime {

bool Class::isSubclassOf(const Class& other) const {
    for (const Class* cls = this; cls; cls = cls->superclass_)
        if (cls == &other)
            return true;
    return false;
}

Implementation Class::find(Selector selector) const {
    for (const Class* cls = this; cls; cls = cls->superclass_)
        if (auto found = cls->methods_.find(selector); found != cls->methods_.end())
            return found->second;
    return {};
}

void Class::setMethod(Selector selector, Implementation implementation) {
    methods_[selector] = std::move(implementation);
}

void Class::setInstanceVariable(const std::string& name, InstanceVariable read) {
    instanceVariables_[name] = std::move(read);
}

std::shared_ptr<Object> Class::instanceVariable(const Object& object, const std::string& name) const {
    for (const Class* cls = this; cls; cls = cls->superclass_)
        if (auto found = cls->instanceVariables_.find(name); found != cls->instanceVariables_.end())
            return found->second(object);
    return nullptr;
}

Registry& Registry::shared() {
    static auto& registry = *new Registry;
    return registry;
}

void Registry::add(Class& cls) {
    classes_.emplace(cls.name(), &cls);
}

Class* Registry::find(const std::string& name) const {
    auto found = classes_.find(name);
    return found == classes_.end() ? nullptr : found->second;
}

} // namespace runtime
