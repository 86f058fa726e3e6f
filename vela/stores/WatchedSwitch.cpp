#include "vela/stores/WatchedSwitch.h"

#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

namespace vela {

WatchedSwitch::WatchedSwitch(std::string key) : key_(std::move(key)), file_(paths::preferences) {}

bool WatchedSwitch::isOn() {
    if (file_.mayHaveChanged())
        on_ = VelaSettingsManager::sharedInstance().getPreferenceForKey(key_).boolValue();
    return on_;
}

} // namespace vela
