// The part of the pages' port that needs no window: which applications there are. Presents and opens nothing.
#pragma once

#include "hosts/settings/program/ApplicationList.h"
#include "platform/preferences/PreferencesPort.h"

namespace settings {

class ApplicationPort : public preferences::PreferencesPort {
public:
    explicit ApplicationPort(std::unique_ptr<ApplicationList> applications)
        : applications_(std::move(applications)) {}

    void present(const std::shared_ptr<toolkit::UIViewController>&, bool, std::function<void()>) override {}
    void dismiss(toolkit::UIViewController&, bool, std::function<void()> completion) override {
        if (completion)
            completion();
    }
    bool canOpenUrl(const std::string&) override { return false; }
    void openUrl(const std::string&) override {}

    std::map<std::string, std::string> applications() override { return applications_->names(); }
    std::shared_ptr<const toolkit::Image> applicationIcon(const std::string& bundleIdentifier,
                                                          double points) override {
        return applications_->icon(bundleIdentifier, points);
    }

private:
    std::unique_ptr<ApplicationList> applications_;
};

} // namespace settings
