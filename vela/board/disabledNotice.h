// Shown in place of a plug-in that took the phone down and has been turned off since: says so, and lets the
// user turn it on again.
#pragma once

#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UILabel.h"

#include <functional>

namespace vela {

class disabledNotice : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    /// `enabled` is called once the user has turned the plug-in on again.
    disabledNotice(std::string identifier, std::function<void()> enabled);

    const std::shared_ptr<toolkit::UILabel>& message() const { return message_; }
    const std::shared_ptr<toolkit::UIButton>& button() const { return button_; }

    void layoutSubviews() override;

private:
    void turnOn();

    std::string identifier_;
    std::function<void()> enabled_;
    std::shared_ptr<toolkit::UILabel> message_;
    std::shared_ptr<toolkit::UIButton> button_;
};

} // namespace vela
