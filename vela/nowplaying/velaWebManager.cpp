#include "vela/nowplaying/velaWebManager.h"

#include "platform/foundation/PercentEncoding.h"

namespace vela {

velaWebManager& velaWebManager::sharedInstance() {
    static auto& manager = *new velaWebManager; // never torn down
    return manager;
}

std::string velaWebManager::encodeString(const std::string& text) {
    return foundation::percentEncoded(text, "-._~!$&'()*+,;=:@/?");
}

} // namespace vela
