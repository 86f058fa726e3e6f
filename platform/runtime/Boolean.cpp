#include "platform/runtime/Boolean.h"

namespace runtime {

Class& Boolean::staticClass() {
    static auto& cls = ClassBuilder<Boolean>("Boolean", &Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(Boolean)

} // namespace runtime
