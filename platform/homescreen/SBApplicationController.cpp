#include "platform/homescreen/SBApplicationController.h"

#include "platform/homescreen/HostPort.h"

namespace homescreen {

runtime::Class& SBApplicationController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SBApplicationController>("SBApplicationController", &Object::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SBApplicationController)

SBApplicationController& SBApplicationController::sharedInstance() {
    static auto& controller = *new SBApplicationController; // never torn down
    return controller;
}

std::shared_ptr<SBApplication>
SBApplicationController::applicationWithBundleIdentifier(const std::string& bundleIdentifier) const {
    const auto name = displayName(bundleIdentifier);
    return name ? std::make_shared<SBApplication>(bundleIdentifier, *name) : nullptr;
}

std::optional<std::string> SBApplicationController::displayName(const std::string& bundleIdentifier) const {
    auto* port = HostPort::current();
    return port ? port->displayName(bundleIdentifier) : std::nullopt;
}

} // namespace homescreen
