// The calendar.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/Application.h"

namespace phone {

class CalendarView;

class CalendarApplication : public Application {
public:
    explicit CalendarApplication(WallClock& clock);

    void becameActive() override;
    void resignedActive() override;

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;

private:
    WallClock& clock_;
    std::shared_ptr<CalendarView> view_;
    foundation::Handle minute_;
};

} // namespace phone
