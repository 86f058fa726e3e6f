#include "vela/settings/VelaSettingsController.h"

#include "platform/preferences/Presentation.h"
#include "platform/preferences/SLComposeViewController.h"
#include "platform/runtime/Creation.h"
#include "platform/toolkit/views/UIImageView.h"
#include "vela/settings/PageState.h"
#include "vela/settings/Pictures.h"
#include "vela/settings/tutorialController.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

using preferences::PSSpecifier;
using preferences::SLComposeViewController;
using preferences::UIBarButtonItem;

namespace vela {

runtime::Class& VelaSettingsController::staticClass() {
    static auto& cls = runtime::ClassBuilder<VelaSettingsController>("VelaSettingsController",
                                                                     &preferencePage::staticClass())
                           .method("Tweet", &VelaSettingsController::Tweet)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(VelaSettingsController)

preferences::PSListController::Specifiers VelaSettingsController::makeSpecifiers() {
    auto header = PSSpecifier::groupSpecifierWithName("");
    header->setProperty("velaCell", preferences::keys::headerCellClass);
    return {header,
            PSSpecifier::emptyGroupSpecifier(),
            withIcon(switchRow(keys::enable), "enable.png"),
            PSSpecifier::emptyGroupSpecifier(),
            withIcon(linkRow("Configuration", "configurationVelaController"), "conf.png"),
            PSSpecifier::emptyGroupSpecifier(),
            withIcon(linkRow("Guide", "guideController"), "guide.png"),
            PSSpecifier::emptyGroupSpecifier(),
            withIcon(linkRow("Contacts", "contactsController"), "contact.png")};
}

std::shared_ptr<PSSpecifier> VelaSettingsController::withIcon(std::shared_ptr<PSSpecifier> row,
                                                              const std::string& fileName) {
    row->setIconImage(pictures::iconOfBundle(fileName));
    return row;
}

void VelaSettingsController::viewWillAppear(bool animated) {
    preferencePage::viewWillAppear(animated);
    if (!navigationItem().titleView())
        fillNavigationItem();
    auto& settings = VelaSettingsManager::sharedInstance();
    animateHeader(settings.getPreferenceForKey(keys::enable).boolValue());
    if (settings.canShowTutorial())
        preferences::presentFromKeyWindow(std::make_shared<tutorialController>(), true);
}

void VelaSettingsController::fillNavigationItem() {
    const auto picture = pictures::ofBundle("icon.png");
    const toolkit::Size size = picture ? picture->size() : toolkit::Size();
    navigationItem().setTitleView(std::make_shared<toolkit::UIImageView>(toolkit::Rect({}, size), picture));
    navigationItem().setRightBarButtonItem(std::make_shared<UIBarButtonItem>(
        pictures::ofBundle("happy.png"), UIBarButtonItem::Style::Plain, this, "Tweet"));
}

void VelaSettingsController::viewDidLayoutSubviews() {
    preferencePage::viewDidLayoutSubviews();
    measurePage(*this);
}

void VelaSettingsController::willStore(const foundation::PropertyList& value, const std::string& key) {
    if (key == keys::enable)
        animateHeader(value.boolValue());
}

void VelaSettingsController::Tweet() {
    auto sheet = std::make_shared<SLComposeViewController>(SLComposeViewController::serviceTypeTwitter);
    sheet->setInitialText("I'm loving #Vela3 by @tarnfield5");
    sheet->setCompletionHandler([weak = std::weak_ptr(sheet)](SLComposeViewController::Result) {
        if (const auto completed = weak.lock())
            preferences::dismiss(*completed, true);
    });
    preferences::presentFromKeyWindow(sheet, true);
}

} // namespace vela
