// Shows what extensions present over the home screen: a sheet to write in, or any controller's view. Hands
// addresses to the world outside, and notes them.
#pragma once

#include "hosts/phone/OutsideWorld.h"
#include "hosts/phone/applications/ApplicationStage.h"
#include "hosts/phone/screens/SystemWindow.h"
#include "platform/preferences/PreferencesPort.h"

#include <vector>

namespace preferences {
class SLComposeViewController;
}

namespace phone {

class PhonePresenter final : public preferences::PreferencesPort {
public:
    /// Becomes the process's port. The stage is the phone's.
    PhonePresenter(OutsideWorld outside, const ApplicationStage& stage);
    ~PhonePresenter() override;

    void fitScreen();
    /// Everything that was opened since the start, in order.
    const std::vector<std::string>& openedAddresses() const { return openedAddresses_; }

    void present(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                 std::function<void()> completion) override;
    void dismiss(toolkit::UIViewController& controller, bool animated,
                 std::function<void()> completion) override;
    bool canOpenUrl(const std::string& url) override;
    void openUrl(const std::string& url) override;
    std::map<std::string, std::string> applications() override;
    std::shared_ptr<const toolkit::Image> applicationIcon(const std::string& bundleIdentifier,
                                                          double points) override;

private:
    struct Presented {
        std::shared_ptr<toolkit::UIViewController> controller;
        std::shared_ptr<toolkit::UIView> view;
    };
    std::shared_ptr<toolkit::UIView>
    composeSheet(const std::shared_ptr<preferences::SLComposeViewController>& controller);
    void post(const std::string& message);
    void fade(const std::vector<std::shared_ptr<toolkit::UIView>>& views, double alpha, bool animated,
              std::function<void()> completion);

    OutsideWorld outside_;
    const ApplicationStage& stage_;
    std::shared_ptr<SystemWindow> window_; // once something has been presented
    std::vector<Presented> presented_;     // the front-most last
    std::vector<std::string> openedAddresses_;
};

} // namespace phone
