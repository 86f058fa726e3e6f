// The clock application's page: the time with moving hands, and the time elsewhere.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/NavigationBar.h"
#include "hosts/phone/applications/WorldClockRow.h"
#include "hosts/phone/screens/ClockFace.h"
#include "platform/toolkit/scrolling/UIScrollView.h"

namespace phone {

class ClockView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit ClockView(WallClock& clock);

    void showTime();

    void layoutSubviews() override;

private:
    WallClock& clock_;
    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<toolkit::UIScrollView> page_;
    std::shared_ptr<ClockFace> face_;
    std::shared_ptr<toolkit::UILabel> time_;
    std::vector<std::shared_ptr<WorldClockRow>> rows_;
};

} // namespace phone
