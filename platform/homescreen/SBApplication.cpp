#include "platform/homescreen/SBApplication.h"

namespace homescreen {

runtime::Class& SBApplication::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBApplication>("SBApplication", &Object::staticClass())
            .method("bundleIdentifier", &SBApplication::answerBundleIdentifier)
            .method("displayName", &SBApplication::answerDisplayName)
            .method("statusBarOrientation", &SBApplication::answerStatusBarOrientation)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBApplication)

} // namespace homescreen
