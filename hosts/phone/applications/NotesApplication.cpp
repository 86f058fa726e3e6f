#include "hosts/phone/applications/NotesApplication.h"

#include "hosts/phone/applications/NotesView.h"
#include "platform/toolkit/views/UIViewController.h"

namespace phone {

NotesApplication::NotesApplication(WallClock& clock)
    : Application(
          {applications::notes, toolkit::orientationMaskAllButUpsideDown, StatusBarStyle::DarkContent}),
      clock_(clock) {}

void NotesApplication::keyboardFrameChanged(toolkit::Rect frame) {
    if (view_)
        view_->setKeyboardFrame(frame);
}

std::shared_ptr<toolkit::UIView> NotesApplication::makeView() {
    const std::tm now = clock_.local();
    view_ = std::make_shared<NotesView>(WallClock::dayText(now) + ", " + std::to_string(now.tm_year + 1900) +
                                        " at " + WallClock::timeText(now));
    return view_;
}

} // namespace phone
