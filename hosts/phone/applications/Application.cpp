#include "hosts/phone/applications/Application.h"

#include "hosts/phone/screens/ScreenController.h"

namespace phone {

Application::Application(ApplicationDescription description)
    : SBApplication(description.entry.bundleIdentifier, description.entry.name),
      description_(std::move(description)) {}

SystemWindow& Application::ensureWindow() {
    if (!window_) {
        window_ = std::make_shared<SystemWindow>(levels::application, WindowSecurity::BehindLockScreen);
        window_->setRootViewController(
            std::make_shared<ScreenController>(makeView(), description_.orientations));
    }
    return *window_;
}

} // namespace phone
