#include "platform/preferences/PSEditableListController.h"

#include "platform/runtime/Creation.h"

namespace preferences {

runtime::Class& PSEditableListController::staticClass() {
    static auto& cls = runtime::ClassBuilder<PSEditableListController>("PSEditableListController",
                                                                       &PSListController::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(PSEditableListController)

void PSEditableListController::performDeletionActionForSpecifier(
    const std::shared_ptr<PSSpecifier>& specifier) {
    if (!canDelete(*specifier))
        return;
    specifier->performDeletionAction();
    removeSpecifier(specifier, true);
}

} // namespace preferences
