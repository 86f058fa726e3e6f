// The radio: a list of stations that the user may change.
#pragma once

#include "hosts/phone/applications/Application.h"
#include "hosts/phone/music/PhoneMediaPort.h"

namespace phone {

class RadioView;

class RadioApplication : public Application {
public:
    explicit RadioApplication(PhoneMediaPort& music);

    void becameActive() override;
    void resignedActive() override;
    void keyboardFrameChanged(toolkit::Rect frame) override;

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;

private:
    PhoneMediaPort& music_;
    std::shared_ptr<RadioView> view_;
};

} // namespace phone
