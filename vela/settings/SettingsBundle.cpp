#include "vela/settings/SettingsBundle.h"

#include "vela/settings/TextFile.h"

namespace vela::bundle {

std::string pathOf(const std::string& fileName) {
    return "/Library/PreferenceBundles/VelaSettings.bundle/" + fileName;
}

std::string introduction() {
    std::string text = readTextFile(pathOf("introduction.txt")).value_or("");
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

} // namespace vela::bundle
