// A settings host that writes down what it is asked and shows nothing.
#pragma once

#include "platform/preferences/PreferencesPort.h"
#include "tests/support/Transcript.h"

#include <set>
#include <vector>

namespace tests {

class RecordingPort final : public preferences::PreferencesPort {
public:
    explicit RecordingPort(support::Transcript& transcript) : transcript_(transcript) { setCurrent(this); }
    ~RecordingPort() override { setCurrent(nullptr); }

    std::set<std::string> schemes; // that some application opens
    std::map<std::string, std::string> installed;
    std::map<std::string, std::shared_ptr<const toolkit::Image>> icons;
    /// What was presented, oldest first, and not yet dismissed.
    std::vector<std::shared_ptr<toolkit::UIViewController>> presented;
    /// Of the last presenting or dismissing; the test calls it when that is to be over.
    std::function<void()> completion;

    void present(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                 std::function<void()> then) override {
        transcript_.add("present ", controller->isa().name(), animated ? " animated" : "");
        presented.push_back(controller);
        completion = std::move(then);
    }
    void dismiss(toolkit::UIViewController& controller, bool animated, std::function<void()> then) override {
        transcript_.add("dismiss ", controller.isa().name(), animated ? " animated" : "");
        std::erase_if(presented, [&](const auto& shown) { return shown.get() == &controller; });
        completion = std::move(then);
    }
    bool canOpenUrl(const std::string& url) override {
        transcript_.add("probe ", url);
        return schemes.contains(url);
    }
    void openUrl(const std::string& url) override { transcript_.add("open ", url); }
    std::map<std::string, std::string> applications() override { return installed; }
    std::shared_ptr<const toolkit::Image> applicationIcon(const std::string& identifier,
                                                          double points) override {
        transcript_.add("icon ", identifier, " ", points);
        const auto found = icons.find(identifier);
        return found == icons.end() ? nullptr : found->second;
    }

private:
    support::Transcript& transcript_;
};

} // namespace tests
