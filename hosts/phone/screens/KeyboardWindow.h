// Brings the on-screen keyboard up when something takes the text focus, and down again when nothing has it.
//
// It lies above the window that is typed into, whichever that is, and is shown wherever that one may be.
#pragma once

#include "hosts/phone/screens/Keyboard.h"
#include "hosts/phone/screens/SystemWindow.h"

namespace phone {

class KeyboardWindow : public SystemWindow {
    RUNTIME_CLASS()
public:
    /// `frameChanged` is called with the keyboard's frame on the screen whenever that changes.
    explicit KeyboardWindow(std::function<void(toolkit::Rect)> frameChanged);

    void setShown(bool shown);
    bool isShown() const { return shown_; }
    /// Points of the screen; height 0, at the bottom, while it is not shown.
    toolkit::Rect visibleFrame() const;
    /// Takes the place that the screen, as it now stands, has for it.
    void fitScreen();

    bool _shouldCreateContextAsSecure() const override;

private:
    void lieAboveFocus();
    toolkit::Rect shownFrame() const;
    toolkit::Rect hiddenFrame() const;

    std::function<void(toolkit::Rect)> frameChanged_;
    std::shared_ptr<Keyboard> keyboard_;
    bool shown_ = false;
    foundation::Handle focus_;
};

} // namespace phone
