// The music player.
#pragma once

#include "hosts/phone/applications/Application.h"

namespace phone {

class MusicApplication : public Application {
public:
    MusicApplication();

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;
};

} // namespace phone
