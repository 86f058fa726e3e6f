// One page of notes: a title, the day it was written, and text to type into.
#pragma once

#include "hosts/phone/applications/NavigationBar.h"
#include "platform/foundation/Handle.h"
#include "platform/toolkit/views/UITextField.h"
#include "platform/toolkit/views/UITextView.h"

namespace phone {

class NotesView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit NotesView(const std::string& date);

    /// The text keeps clear of the keyboard, whose frame on the screen this is.
    void setKeyboardFrame(toolkit::Rect frame);

    void layoutSubviews() override;

private:
    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<toolkit::UILabel> date_;
    std::shared_ptr<toolkit::UITextField> title_;
    std::shared_ptr<toolkit::UITextView> text_;
    double keyboardHeight_ = 0;
    foundation::Handle focus_;
};

} // namespace phone
