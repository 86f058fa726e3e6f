// The caret of a text input: a blue bar that blinks while it is shown.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/views/UIView.h"

namespace toolkit {

class TextCaret : public UIView {
    RUNTIME_CLASS()
public:
    TextCaret();

    static constexpr double width = 2;           // points
    static constexpr double blinkInterval = 0.5; // seconds shown, then as many hidden

    /// Shows the caret at the left edge of `caret` (the superview's coordinates), lit for a whole interval.
    void showAt(Rect caret);
    void hide();

private:
    foundation::Handle blink_;
};

} // namespace toolkit
