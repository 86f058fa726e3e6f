// One switch of the preferences for those who ask in every frame.
//
// The answer is always that of the file as it stands; the file is only read again when it may have changed.
// Main thread only.
#pragma once

#include "platform/foundation/FileStamp.h"

#include <string>

namespace vela {

class WatchedSwitch {
public:
    explicit WatchedSwitch(std::string key);

    bool isOn();

private:
    std::string key_;
    foundation::FileStamp file_;
    bool on_ = false;
};

} // namespace vela
