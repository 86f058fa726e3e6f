// What takes typed text, and which one does at the moment.
#pragma once

#include "platform/foundation/Handle.h"

#include <functional>
#include <string>

namespace toolkit {

class TextInput {
public:
    virtual ~TextInput();
    virtual void insertText(const std::string& text) = 0;
    virtual void deleteBackward() = 0;
    /// By whole characters, back when negative.
    virtual void moveCaret(int characters) = 0;
    virtual void becameFirstResponder() {}
    virtual void resignedFirstResponder() {}

    void becomeFirstResponder();
    void resignFirstResponder();
    bool isFirstResponder() const { return current() == this; }

    /// The one that typed text goes to, or null.
    static TextInput* current();
    /// Called whenever current() has changed: the keyboard shows and hides by it.
    static foundation::Handle addObserver(std::function<void(TextInput*)> observer);
};

} // namespace toolkit
