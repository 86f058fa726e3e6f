#include "vela/settings/preferencePage.h"

#include "vela/stores/VelaSettingsManager.h"

using foundation::PropertyList;
using preferences::PSCellType;
using preferences::PSSpecifier;

namespace vela {

runtime::Class& preferencePage::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<preferencePage>("preferencePage", &PSListController::staticClass())
            .method("getValue:", &preferencePage::getValue)
            .method("setValue:forSpecifier:", &preferencePage::setValue)
            .build();
    return cls;
}
RUNTIME_REGISTER_CLASS(preferencePage)

PropertyList preferencePage::getValue(const std::shared_ptr<PSSpecifier>& specifier) {
    return VelaSettingsManager::sharedInstance().getPreferenceForKey(specifier->identifier());
}

void preferencePage::setValue(const PropertyList& value, const std::shared_ptr<PSSpecifier>& specifier) {
    willStore(value, specifier->identifier());
    VelaSettingsManager::sharedInstance().setPreference(value, specifier->identifier());
}

std::shared_ptr<PSSpecifier> preferencePage::switchRow(const std::string& key) {
    auto row = valueRow(key, "", PSCellType::Switch);
    row->setProperty("velaSwitchCell", preferences::keys::cellClass);
    return row;
}

std::shared_ptr<PSSpecifier> preferencePage::linkRow(const std::string& name, const std::string& pageClass) {
    return PSSpecifier::preferenceSpecifierNamed(name, this, std::nullopt, std::nullopt, pageClass,
                                                 PSCellType::Link);
}

std::shared_ptr<PSSpecifier> preferencePage::valueRow(const std::string& key, const std::string& pageClass,
                                                      PSCellType cell) {
    return PSSpecifier::preferenceSpecifierNamed(key, this, "setValue:forSpecifier:", "getValue:", pageClass,
                                                 cell);
}

} // namespace vela
