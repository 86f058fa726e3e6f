#include "vela/settings/lyrciEditController.h"

#include "platform/preferences/UINavigationController.h"
#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/stores/VelaSettingsManager.h"

using preferences::PSCellType;
using preferences::PSSpecifier;
using preferences::UIBarButtonItem;

namespace vela {

runtime::Class& lyrciEditController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<lyrciEditController>("lyrciEditController", &PSListController::staticClass())
            .method("saveLyric", &lyrciEditController::saveLyric)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(lyrciEditController)

preferences::PSListController::Specifiers lyrciEditController::makeSpecifiers() {
    pageState().text = VelaSettingsManager::sharedInstance().getLyricForSongTitle(title()).value_or("");
    auto editor = std::make_shared<PSSpecifier>("", PSCellType::StaticText);
    editor->setProperty("editCell", preferences::keys::cellClass);
    return {editor};
}

void lyrciEditController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    if (!navigationItem().titleView())
        navigationItem().setRightBarButtonItem(
            std::make_shared<UIBarButtonItem>("Save", UIBarButtonItem::Style::Done, this, "saveLyric"));
}

void lyrciEditController::viewDidLayoutSubviews() {
    PSListController::viewDidLayoutSubviews();
    measurePage(*this);
}

void lyrciEditController::saveLyric() {
    const auto kept = shared_from_this(); // the stack lets go of the page
    if (navigationController())
        navigationController()->popViewControllerAnimated(true);
    VelaSettingsManager::sharedInstance().addLyric(pageState().text, title());
}

} // namespace vela
