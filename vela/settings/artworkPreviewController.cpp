#include "vela/settings/artworkPreviewController.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/settings/Pictures.h"

using preferences::PSCellType;
using preferences::PSSpecifier;

namespace vela {

runtime::Class& artworkPreviewController::staticClass() {
    static auto& cls = runtime::ClassBuilder<artworkPreviewController>("artworkPreviewController",
                                                                       &PSListController::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(artworkPreviewController)

preferences::PSListController::Specifiers artworkPreviewController::makeSpecifiers() {
    pageState().fileName = pictures::artworkPath(title());
    auto artwork = std::make_shared<PSSpecifier>("", PSCellType::StaticText);
    artwork->setProperty("artworkCell", preferences::keys::cellClass);
    return {artwork};
}

void artworkPreviewController::viewDidLayoutSubviews() {
    PSListController::viewDidLayoutSubviews();
    measurePage(*this);
}

} // namespace vela
