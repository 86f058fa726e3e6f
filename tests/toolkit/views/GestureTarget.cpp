#include "tests/toolkit/views/GestureTest.h"

namespace toolkit {

runtime::Class& GestureTarget::staticClass() {
    static auto& cls = runtime::ClassBuilder<GestureTarget>("GestureTarget", &runtime::Object::staticClass())
                           .action("handleGesture:", &GestureTarget::handleGesture)
                           .method("poke", &GestureTarget::poke)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(GestureTarget)

} // namespace toolkit
