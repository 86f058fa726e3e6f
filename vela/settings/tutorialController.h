// The welcome screen, which leads to a film about the product.
#pragma once

#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UILabel.h"
#include "platform/toolkit/views/UIViewController.h"

namespace vela {

class tutorialController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    tutorialController();

    const std::shared_ptr<toolkit::UILabel>& welcome() const { return welcome_; }
    const std::shared_ptr<toolkit::UIButton>& ok() const { return ok_; }

    void viewWillLayoutSubviews() override;
    /// Goes away and lets the film begin.
    void showTutorial();

private:
    void makeWelcome();
    void makeOk();

    std::shared_ptr<toolkit::UILabel> welcome_ = std::make_shared<toolkit::UILabel>();
    std::shared_ptr<toolkit::UIButton> ok_ = std::make_shared<toolkit::UIButton>();
};

} // namespace vela
