#include "vela/settings/contactsController.h"

#include "platform/preferences/Presentation.h"
#include "platform/preferences/SFSafariViewController.h"
#include "platform/runtime/Creation.h"
#include "vela/settings/Pictures.h"
#include "vela/stores/ProductConfiguration.h"

using preferences::PSCellType;
using preferences::PSSpecifier;

namespace vela {

namespace {

/// A client of the social network: the kind of address by which it is known, and its page of the developer.
struct SocialClient {
    const char* probe;
    const char* profile;
};
constexpr SocialClient socialClients[] = {
    {"tweetbot:", "tweetbot:///user_profile/tarnfield5"},
    {"tweetings:", "tweetings:///user?screen_name=tarnfield5"},
    {"twitter:", "twitter://user?screen_name=tarnfield5"},
};

} // namespace

runtime::Class& contactsController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<contactsController>("contactsController", &PSListController::staticClass())
            .method("followDeveloper", &contactsController::followDeveloper)
            .method("shoGuide", &contactsController::shoGuide)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(contactsController)

preferences::PSListController::Specifiers contactsController::makeSpecifiers() {
    auto twitter = actionRow("Twitter", "followDeveloper");
    twitter->setIconImage(pictures::iconOfBundle("twitter.png"));
    return {std::move(twitter), PSSpecifier::emptyGroupSpecifier(),
            actionRow("Develop your own Vela application", "shoGuide")};
}

std::shared_ptr<PSSpecifier> contactsController::actionRow(const std::string& name,
                                                           runtime::Selector action) {
    auto row =
        PSSpecifier::preferenceSpecifierNamed(name, this, std::nullopt, std::nullopt, "", PSCellType::Link);
    row->setButtonAction(action);
    return row;
}

void contactsController::followDeveloper() {
    for (const SocialClient& client : socialClients)
        if (preferences::canOpenUrl(client.probe)) {
            preferences::openUrl(client.profile);
            return;
        }
    preferences::openUrl(ProductConfiguration::shared().socialWebHost() +
                         "/intent/follow?screen_name=tarnfield5");
}

void contactsController::shoGuide() {
    preferences::presentFromKeyWindow(std::make_shared<preferences::SFSafariViewController>(
                                          ProductConfiguration::shared().developerTutorial()),
                                      true);
}

} // namespace vela
