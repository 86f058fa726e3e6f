// Notes: a page to type on.
#pragma once

#include "hosts/phone/WallClock.h"
#include "hosts/phone/applications/Application.h"

namespace phone {

class NotesView;

class NotesApplication : public Application {
public:
    explicit NotesApplication(WallClock& clock);

    void keyboardFrameChanged(toolkit::Rect frame) override;

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;

private:
    WallClock& clock_;
    std::shared_ptr<NotesView> view_;
};

} // namespace phone
