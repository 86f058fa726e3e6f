// Lines of text in a scroll view, editable or not.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/text/TextLayout.h"
#include "platform/toolkit/views/TextInput.h"

namespace toolkit {

class UITextView : public UIScrollView, public TextInput {
    RUNTIME_CLASS()
public:
    explicit UITextView(Rect frame = {});
    ~UITextView() override;

    const std::string& text() const { return text_; }
    virtual void setText(std::string text);
    Font font() const { return style_.font; }
    void setFont(Font font);
    Color textColor() const { return textColor_; }
    void setTextColor(Color color);
    void setTextAlignment(TextAlignment alignment);
    bool isEditable() const { return editable_; }
    void setEditable(bool editable) { editable_ = editable; }
    bool isSelectable() const { return selectable_; }
    void setSelectable(bool selectable) { selectable_ = selectable; }

    void insertText(const std::string& text) override;
    void deleteBackward() override;
    void moveCaret(int characters) override;
    void becameFirstResponder() override;
    void resignedFirstResponder() override;

    void layoutSubviews() override;
    void touchesEnded(const Touch& touch) override;
    /// Called after every edit by the user.
    void setTextChangedHandler(std::function<void()> handler) { textChanged_ = std::move(handler); }

private:
    class TextContent;
    void updateContentSize();
    std::shared_ptr<TextContent> content_;
    std::string text_;
    TextStyle style_;
    Color textColor_ = Color::black();
    bool editable_ = true;
    bool selectable_ = true;
    std::size_t caret_ = 0;
    std::function<void()> textChanged_;
};

} // namespace toolkit
