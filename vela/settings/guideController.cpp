#include "vela/settings/guideController.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/Presentation.h"
#include "platform/runtime/Creation.h"
#include "vela/settings/SettingsBundle.h"
#include "vela/settings/TextFile.h"
#include "vela/settings/tutorialController.h"
#include "vela/stores/Paths.h"

using preferences::PSCellType;
using preferences::PSSpecifier;

namespace vela {

namespace {

std::string guideOf(const std::string& plugInDirectory) {
    const std::string guide = readTextFile(plugInDirectory + "/guide.txt").value_or("");
    return guide.empty() ? "No guide for that plugin." : guide;
}

} // namespace

runtime::Class& guideController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<guideController>("guideController", &PSListController::staticClass())
            .method("showTutorial", &guideController::showTutorial)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(guideController)

preferences::PSListController::Specifiers guideController::makeSpecifiers() {
    Specifiers rows{PSSpecifier::groupSpecifierWithFooterText(bundle::introduction())};
    const Specifiers plugIns = plugInRows();
    rows.insert(rows.end(), plugIns.begin(), plugIns.end());
    rows.push_back(PSSpecifier::emptyGroupSpecifier());
    auto tutorial = PSSpecifier::preferenceSpecifierNamed("Watch tutorial", this, std::nullopt, std::nullopt,
                                                          "", PSCellType::Link);
    tutorial->setButtonAction("showTutorial");
    rows.push_back(std::move(tutorial));
    return rows;
}

preferences::PSListController::Specifiers guideController::plugInRows() const {
    const auto& files = foundation::FileManager::shared();
    Specifiers rows;
    // Directories, not the registry's plug-ins: hidden ones have a guide too.
    for (const std::string& name :
         files.contentsOfDirectory(paths::plugIns).value_or(std::vector<std::string>())) {
        const std::string directory = std::string(paths::plugIns) + "/" + name;
        if (!files.directoryExists(directory))
            continue;
        rows.push_back(PSSpecifier::groupSpecifierWithFooterText(guideOf(directory)));
        rows.push_back(std::make_shared<PSSpecifier>(name, PSCellType::StaticText));
    }
    return rows;
}

void guideController::showTutorial() {
    preferences::presentFromKeyWindow(std::make_shared<tutorialController>(), true);
}

} // namespace vela
