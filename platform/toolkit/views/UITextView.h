// Lines of text in a scroll view, editable or not.
//
// The content size follows the text at the next layout. An editable one becomes the first responder when it
// is tapped. Texts may be of any length: only what is looked at is laid out and drawn, and until then the
// height of what lies far below is an estimate.
#pragma once

#include "platform/toolkit/scrolling/UIScrollView.h"
#include "platform/toolkit/text/TextLayout.h"
#include "platform/toolkit/views/TextInput.h"

namespace toolkit {

class TextCaret;
class TextContentView;
class UITapGestureRecognizer;

class UITextView : public UIScrollView, public TextInput {
    RUNTIME_CLASS()
public:
    explicit UITextView(Rect frame = {});
    ~UITextView() override;

    /// What goes beyond this length is not taken.
    static constexpr std::size_t maximumBytes = 16 * 1024 * 1024;

    const std::string& text() const;
    /// Puts the caret at the end. Bytes that are not UTF-8 are replaced.
    virtual void setText(std::string text);
    Font font() const { return style_.font; }
    void setFont(Font font);
    Color textColor() const;
    void setTextColor(Color color);
    TextAlignment textAlignment() const { return style_.alignment; }
    void setTextAlignment(TextAlignment alignment);
    bool isEditable() const { return editable_; }
    void setEditable(bool editable);
    bool isSelectable() const { return selectable_; }
    void setSelectable(bool selectable) { selectable_ = selectable; }

    void insertText(const std::string& text) override;
    void deleteBackward() override;
    void moveCaret(int characters) override;
    void becameFirstResponder() override;
    void resignedFirstResponder() override;

    /// The width and height of the text broken into lines of `size`'s width, the margins around it included.
    Size sizeThatFits(Size size) const override;
    void setBounds(Rect bounds) override;
    void layoutSubviews() override;
    void describeProperties(nlohmann::json& properties) const override;
    void didMoveToSuperview() override;
    /// Called after every edit by the user.
    void setTextChangedHandler(std::function<void()> handler) { textChanged_ = std::move(handler); }

private:
    void styleChanged();
    void edited();
    void updateContentSize();
    std::pair<double, double> lookedAt() const;
    void showVisiblePart();
    void showCaret();
    void scrollToCaret();
    void tapped(Point point);

    std::shared_ptr<TextContentView> content_;
    std::shared_ptr<TextCaret> caretView_;
    std::shared_ptr<UITapGestureRecognizer> tap_;
    TextStyle style_;
    bool editable_ = true;
    bool selectable_ = true;
    std::size_t caret_ = 0; // a byte index
    std::function<void()> textChanged_;
};

} // namespace toolkit
