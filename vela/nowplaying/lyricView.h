// The scrolling text area of the music panel.
#pragma once

#include "platform/toolkit/views/UITextView.h"

namespace vela {

class lyricView : public toolkit::UITextView {
    RUNTIME_CLASS()
public:
    explicit lyricView(toolkit::Rect frame = {});
};

} // namespace vela
