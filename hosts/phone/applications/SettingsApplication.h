// The settings.
#pragma once

#include "hosts/phone/applications/Application.h"

namespace phone {

class SettingsView;

class SettingsApplication : public Application {
public:
    SettingsApplication();

    void becameActive() override;

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;

private:
    std::shared_ptr<SettingsView> view_;
};

} // namespace phone
