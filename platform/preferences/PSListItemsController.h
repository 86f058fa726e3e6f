// The page of a list row's choices. Choosing one sends the value to the row's own setter.
#pragma once

#include "platform/preferences/PSListController.h"

namespace preferences {

class PSListItemsController : public PSListController {
    RUNTIME_CLASS()
public:
    void selectSpecifier(const std::shared_ptr<PSSpecifier>& choice) override;
    bool isSpecifierChecked(const std::shared_ptr<PSSpecifier>& choice) override;

protected:
    Specifiers makeSpecifiers() override;

private:
    /// What a choice stores; nil for a row that is none of this page's.
    foundation::PropertyList valueOf(const std::shared_ptr<PSSpecifier>& choice);
};

} // namespace preferences
