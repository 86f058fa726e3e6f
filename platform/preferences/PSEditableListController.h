// A settings page whose rows can be deleted: those that have a deletion action.
#pragma once

#include "platform/preferences/PSListController.h"

namespace preferences {

class PSEditableListController : public PSListController {
    RUNTIME_CLASS()
public:
    bool canDelete(const PSSpecifier& specifier) const { return specifier.deletionAction().has_value(); }
    /// Sends the row's deletion action to its target, then takes the row away.
    void performDeletionActionForSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
};

} // namespace preferences
