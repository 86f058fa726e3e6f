// Where to find the product's developer, and what other developers need.
#pragma once

#include "platform/preferences/PSListController.h"

namespace vela {

class contactsController : public preferences::PSListController {
    RUNTIME_CLASS()
public:
    /// Opens the developer's profile in the first client that is installed, else on the web.
    void followDeveloper();
    /// Shows how to write plug-ins.
    void shoGuide();

protected:
    Specifiers makeSpecifiers() override;

private:
    std::shared_ptr<preferences::PSSpecifier> actionRow(const std::string& name, runtime::Selector action);
};

} // namespace vela
