#include "vela/settings/Pictures.h"

#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/settings/SettingsBundle.h"
#include "vela/stores/Paths.h"

namespace vela::pictures {

std::shared_ptr<const toolkit::Image> atPath(const std::string& devicePath) {
    return toolkit::loadImageNamed(devicePath, toolkit::UIScreen::mainScreen().scale());
}

std::shared_ptr<const toolkit::Image> ofBundle(const std::string& fileName) {
    return atPath(bundle::pathOf(fileName));
}

std::string artworkPath(const std::string& entry) {
    return std::string(paths::artworks) + "/" + entry + ".png";
}

preferences::PSSpecifier::ImageSource iconAtPath(const std::string& devicePath) {
    return [devicePath] { return atPath(devicePath); };
}

preferences::PSSpecifier::ImageSource iconOfBundle(const std::string& fileName) {
    return iconAtPath(bundle::pathOf(fileName));
}

} // namespace vela::pictures
