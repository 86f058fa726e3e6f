#include "platform/runtime/Creation.h"

namespace runtime {

namespace {

std::unordered_map<const Class*, Class::Factory>& factories() {
    static auto& all = *new std::unordered_map<const Class*, Class::Factory>; // never torn down
    return all;
}

} // namespace

bool makeCreatable(Class& cls, Class::Factory create) {
    return factories().insert_or_assign(&cls, std::move(create)).second;
}

std::shared_ptr<Object> createInstance(const std::string& className) {
    const auto found = factories().find(Registry::shared().find(className));
    return found == factories().end() ? nullptr : found->second();
}

} // namespace runtime
