// One line of text that the user edits; a tap makes it the first responder.
#pragma once

#include "platform/toolkit/views/UIControl.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/text/TextLayout.h"

namespace toolkit {

class UITextField : public UIControl, public TextInput {
    RUNTIME_CLASS()
public:
    explicit UITextField(Rect frame = {});
    ~UITextField() override;

    const std::string& text() const { return text_; }
    void setText(std::string text);
    void setPlaceholder(std::string placeholder);
    void setFont(Font font);
    void setTextColor(Color color);

    void insertText(const std::string& text) override;
    void deleteBackward() override;
    void moveCaret(int characters) override;
    void becameFirstResponder() override;
    void resignedFirstResponder() override;

    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override;
    void touchesEnded(const Touch& touch) override;

private:
    std::string text_;
    std::string placeholder_;
    Font font_ = Font::system(17);
    Color textColor_ = Color::black();
    std::size_t caret_ = 0;
    bool editing_ = false;
};

} // namespace toolkit
