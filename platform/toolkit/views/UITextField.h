// One line of text that the user edits; a tap makes it the first responder.
//
// Text longer than the field scrolls so that the caret stays in sight. Every edit by the user sends
// EditingChanged; the return key ends the editing.
#pragma once

#include "platform/toolkit/text/TextLayout.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/views/UIControl.h"

namespace toolkit {

class TextCaret;

class UITextField : public UIControl, public TextInput {
    RUNTIME_CLASS()
public:
    explicit UITextField(Rect frame = {});
    ~UITextField() override;

    /// What does not fit into a line of this many bytes is not taken.
    static constexpr std::size_t maximumBytes = 65536;

    const std::string& text() const { return text_; }
    /// Puts the caret at the end. Line breaks become spaces.
    void setText(const std::string& text);
    const std::string& placeholder() const { return placeholder_; }
    void setPlaceholder(const std::string& placeholder);
    Font font() const { return style_.font; }
    void setFont(Font font);
    Color textColor() const { return textColor_; }
    void setTextColor(Color color);
    void setTextAlignment(TextAlignment alignment);
    bool isEditing() const { return isFirstResponder(); }

    void insertText(const std::string& text) override;
    void deleteBackward() override;
    void moveCaret(int characters) override;
    void becameFirstResponder() override;
    void resignedFirstResponder() override;

    Size sizeThatFits(Size size) const override;
    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override;
    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;
    void touchesEnded(const Touch& touch) override;
    void didMoveToSuperview() override;

protected:
    void enabledChanged() override;

private:
    TextLayout layoutFor(const std::string& text) const;
    Point textOrigin(const TextLayout& layout) const;
    void edited();
    void changed();
    void showCaret();

    std::string text_;
    std::string placeholder_;
    TextStyle style_;
    Color textColor_ = Color::black();
    std::size_t caret_ = 0; // a byte index
    double scroll_ = 0;     // points of the text that are out of sight at the left
    std::shared_ptr<TextCaret> caretView_;
};

} // namespace toolkit
