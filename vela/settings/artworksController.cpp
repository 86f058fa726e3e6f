#include "vela/settings/artworksController.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/Pictures.h"
#include "vela/stores/VelaSettingsManager.h"

namespace vela {

runtime::Class& artworksController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<artworksController>("artworksController", &storedSongsPage::staticClass())
            .method("removedSpecifier:", &artworksController::removedSpecifier)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(artworksController)

preferences::PSListController::Specifiers artworksController::makeSpecifiers() {
    Specifiers rows;
    for (const std::string& entry : VelaSettingsManager::sharedInstance().getArtworks()) {
        auto row = songRow(entry, "artworkPreviewController");
        row->setIconImage(pictures::iconAtPath(pictures::artworkPath(entry)));
        rows.push_back(std::move(row));
    }
    return rows;
}

void artworksController::removedSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    VelaSettingsManager::sharedInstance().removeArtwork(specifier->name());
}

} // namespace vela
