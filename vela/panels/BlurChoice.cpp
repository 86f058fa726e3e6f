#include "vela/panels/BlurChoice.h"

#include "platform/homescreen/ScreenCapture.h"
#include "platform/homescreen/SpringBoard.h"
#include "vela/panels/UIImageAverageColor.h"
#include "vela/startup/ModuleState.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/PreferenceKeys.h"
#include "vela/stores/VelaSettingsManager.h"

using toolkit::BlurEffectStyle;

namespace vela::blur {

std::shared_ptr<const toolkit::Image> getScreenImage(runtime::Object&) {
    return homescreen::_UICreateScreenUIImage();
}

BlurEffectStyle styleFor(const toolkit::Image* screen) {
    return styleFor(screen ? mergedColor(*screen) : toolkit::Color());
}

BlurEffectStyle styleFor(const toolkit::Color& color) {
    const float mean = static_cast<float>((color.red + color.green + color.blue) / 3);
    return mean > 0.5f ? BlurEffectStyle::Dark : BlurEffectStyle::Light;
}

BlurEffectStyle chosenStyle() {
    const auto setting = VelaSettingsManager::sharedInstance().getPreferenceForKey(keys::blur);
    if (setting.equals("auto"))
        return styleFor(messages::getScreenImage(moduleState().spring).get());
    return setting.equals("dark") ? BlurEffectStyle::Dark : BlurEffectStyle::Light;
}

} // namespace vela::blur
