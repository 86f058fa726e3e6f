// What the product presents over the session: messages to share, which go to the social network's own page in
// a browser, where they are changed and sent. Nothing else is presented there.
//
// Main thread only; one per process, never torn down.
#pragma once

#include "hosts/bus/Bus.h"
#include "hosts/desktop/DesktopEntries.h"
#include "platform/preferences/PreferencesPort.h"

namespace session {

class SessionPresenter final : public preferences::PreferencesPort {
public:
    /// Becomes the process's port.
    explicit SessionPresenter(const bus::Bus& session);

    void present(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                 std::function<void()> completion) override;
    void dismiss(toolkit::UIViewController& controller, bool animated,
                 std::function<void()> completion) override;
    bool canOpenUrl(const std::string& url) override;
    void openUrl(const std::string& url) override;
    std::map<std::string, std::string> applications() override;
    /// Always null: icons are shown by the settings alone.
    std::shared_ptr<const toolkit::Image> applicationIcon(const std::string& bundleIdentifier,
                                                          double points) override;

private:
    const bus::Bus& session_;
    desktop::DesktopEntries entries_;
};

} // namespace session
