#include "platform/preferences/AVPlayerViewController.h"

namespace preferences {

runtime::Class& AVPlayerViewController::staticClass() {
    static auto& cls = runtime::ClassBuilder<AVPlayerViewController>("AVPlayerViewController",
                                                                     &UIViewController::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(AVPlayerViewController)

} // namespace preferences
