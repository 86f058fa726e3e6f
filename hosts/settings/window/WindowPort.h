// The settings' window as pages ask for it: presents, opens and dismisses.
#pragma once

#include "hosts/settings/program/ApplicationPort.h"
#include "hosts/settings/window/SettingsWindow.h"

namespace settings {

class WindowPort : public ApplicationPort {
public:
    WindowPort(SettingsWindow& window, std::unique_ptr<ApplicationList> applications)
        : ApplicationPort(std::move(applications)), window_(window) {}

    void present(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                 std::function<void()> completion) override;
    void dismiss(toolkit::UIViewController& controller, bool animated,
                 std::function<void()> completion) override;
    bool canOpenUrl(const std::string& url) override;
    void openUrl(const std::string& url) override;

private:
    GtkWidget* newPage(const std::shared_ptr<toolkit::UIViewController>& controller);
    void send(const std::string& message);

    SettingsWindow& window_;
};

} // namespace settings
