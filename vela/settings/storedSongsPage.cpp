#include "vela/settings/storedSongsPage.h"

using preferences::PSCellType;
using preferences::PSSpecifier;

namespace vela {

runtime::Class& storedSongsPage::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<storedSongsPage>("storedSongsPage", &PSEditableListController::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(storedSongsPage)

void storedSongsPage::viewWillAppear(bool animated) {
    PSEditableListController::viewWillAppear(animated);
    setSpecifiers(makeSpecifiers());
}

std::shared_ptr<PSSpecifier> storedSongsPage::songRow(const std::string& name, const std::string& pageClass) {
    auto row = PSSpecifier::preferenceSpecifierNamed(name, this, std::nullopt, std::nullopt, pageClass,
                                                     PSCellType::Link);
    row->setDeletionAction("removedSpecifier:");
    return row;
}

} // namespace vela
