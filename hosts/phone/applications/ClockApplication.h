// The clock. Ticks only while it is in front.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/Application.h"

namespace phone {

class ClockView;

class ClockApplication : public Application {
public:
    explicit ClockApplication(WallClock& clock);

    void becameActive() override;
    void resignedActive() override;

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;

private:
    WallClock& clock_;
    std::shared_ptr<ClockView> view_;
    foundation::Handle tick_;
};

} // namespace phone
