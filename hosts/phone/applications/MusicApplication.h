// The music player.
#pragma once

#include "hosts/phone/applications/Application.h"
#include "hosts/phone/music/PhoneMediaPort.h"

namespace phone {

class MusicView;

class MusicApplication : public Application {
public:
    explicit MusicApplication(PhoneMediaPort& music);

    void becameActive() override;
    void resignedActive() override;

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;

private:
    PhoneMediaPort& music_;
    std::shared_ptr<MusicView> view_;
};

} // namespace phone
