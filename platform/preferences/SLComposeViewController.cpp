#include "platform/preferences/SLComposeViewController.h"

#include "platform/preferences/Presentation.h"

namespace preferences {

runtime::Class& SLComposeViewController::staticClass() {
    static auto& cls = runtime::ClassBuilder<SLComposeViewController>("SLComposeViewController",
                                                                      &UIViewController::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SLComposeViewController)

bool SLComposeViewController::isAvailableForServiceType(const std::string&) {
    return canOpenUrl("https:");
}

void SLComposeViewController::complete(Result result) {
    const auto kept = shared_from_this(); // the handler may let go of the sheet
    if (completed_)
        completed_(result);
}

} // namespace preferences
