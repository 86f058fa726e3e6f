#include "platform/preferences/PSListItemsController.h"

#include "platform/runtime/Creation.h"

#include <algorithm>

using foundation::PropertyList;

namespace preferences {

runtime::Class& PSListItemsController::staticClass() {
    static auto& cls = runtime::ClassBuilder<PSListItemsController>("PSListItemsController",
                                                                    &PSListController::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(PSListItemsController)

PSListController::Specifiers PSListItemsController::makeSpecifiers() {
    if (!specifier())
        return {};
    Specifiers choices{PSSpecifier::emptyGroupSpecifier()};
    for (const std::string& title : specifier()->titles())
        choices.push_back(std::make_shared<PSSpecifier>(title, PSCellType::ListItem));
    return choices;
}

PropertyList PSListItemsController::valueOf(const std::shared_ptr<PSSpecifier>& choice) {
    const auto& all = specifiers();
    const auto found = std::find(all.begin(), all.end(), choice);
    if (found == all.end() || found == all.begin())
        return {};
    return specifier()->values().at(static_cast<std::size_t>(found - all.begin()) - 1); // behind the group
}

void PSListItemsController::selectSpecifier(const std::shared_ptr<PSSpecifier>& choice) {
    const PropertyList value = valueOf(choice);
    if (value.isNil())
        return;
    specifier()->performSetterWithValue(value);
    // Another one is checked; the list stays as it is.
    for (const auto& shown : specifiers())
        if (!shown->isGroup())
            reloadSpecifier(shown);
}

bool PSListItemsController::isSpecifierChecked(const std::shared_ptr<PSSpecifier>& choice) {
    const PropertyList value = valueOf(choice);
    return !value.isNil() && value == specifier()->performGetter();
}

} // namespace preferences
