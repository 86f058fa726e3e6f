#include "hosts/phone/applications/SettingsApplication.h"

#include "hosts/phone/applications/SettingsView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

SettingsApplication::SettingsApplication()
    : Application(
          {applications::settings, toolkit::orientationMaskAllButUpsideDown, StatusBarStyle::DarkContent}) {}

void SettingsApplication::becameActive() {
    view_->refresh();
}

std::shared_ptr<toolkit::UIView> SettingsApplication::makeView() {
    view_ = std::make_shared<SettingsView>();
    return view_;
}

} // namespace phone
