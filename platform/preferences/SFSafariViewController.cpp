#include "platform/preferences/SFSafariViewController.h"

namespace preferences {

runtime::Class& SFSafariViewController::staticClass() {
    static auto& cls = runtime::ClassBuilder<SFSafariViewController>("SFSafariViewController",
                                                                     &UIViewController::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SFSafariViewController)

} // namespace preferences
