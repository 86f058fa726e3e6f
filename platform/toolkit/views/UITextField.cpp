#include "platform/toolkit/views/UITextField.h"

#include "platform/toolkit/gestures/Touch.h"
#include "platform/toolkit/text/TextBoundaries.h"
#include "platform/toolkit/text/Utf8.h"
#include "platform/toolkit/views/TextCaret.h"

#include <algorithm>

namespace toolkit {

namespace {
constexpr double inset = 7; // points beside the text
const Color placeholderColor = Color::rgba(0.78, 0.78, 0.80);

/// `text` as it may stand in one line of at most `limit` bytes.
std::string singleLine(const std::string& text, std::size_t limit) {
    std::string line = wholeUtf8(text, limit);
    for (char& c : line)
        if (c == '\n' || c == '\r' || c == '\t')
            c = ' ';
    return line;
}
} // namespace

runtime::Class& UITextField::staticClass() {
    static auto& cls = runtime::ClassBuilder<UITextField>("UITextField", &UIControl::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UITextField)

UITextField::UITextField(Rect frame) : UIControl(frame), caretView_(std::make_shared<TextCaret>()) {
    style_.font = Font::system(17);
    setClipsToBounds(true);
    addSubview(caretView_);
}

UITextField::~UITextField() {
    resignFirstResponder();
}

// Properties

void UITextField::setText(const std::string& text) {
    text_ = singleLine(text, maximumBytes);
    caret_ = text_.size();
    changed();
}

void UITextField::setPlaceholder(const std::string& placeholder) {
    placeholder_ = singleLine(placeholder, maximumBytes);
    setNeedsDisplay();
}

void UITextField::setFont(Font font) {
    style_.font = font;
    changed();
}

void UITextField::setTextColor(Color color) {
    textColor_ = color;
    setNeedsDisplay();
}

void UITextField::setTextAlignment(TextAlignment alignment) {
    style_.alignment = alignment;
    changed();
}

void UITextField::enabledChanged() {
    if (!isEnabled())
        resignFirstResponder();
}

// Typing

void UITextField::insertText(const std::string& text) {
    if (text == "\n") {
        resignFirstResponder();
        return;
    }
    const std::string line = singleLine(text, maximumBytes - text_.size());
    if (line.empty())
        return;
    text_.insert(caret_, line);
    caret_ += line.size();
    edited();
}

void UITextField::deleteBackward() {
    const std::size_t begin = previousCharacter(text_, caret_);
    if (begin == caret_)
        return;
    text_.erase(begin, caret_ - begin);
    caret_ = begin;
    edited();
}

void UITextField::moveCaret(int characters) {
    for (; characters > 0 && caret_ < text_.size(); --characters)
        caret_ = nextCharacter(text_, caret_);
    for (; characters < 0 && caret_ > 0; ++characters)
        caret_ = previousCharacter(text_, caret_);
    changed();
}

void UITextField::edited() {
    changed();
    sendActions(ControlEvent::EditingChanged);
}

void UITextField::changed() {
    setNeedsDisplay();
    showCaret();
}

void UITextField::becameFirstResponder() {
    showCaret();
}

void UITextField::resignedFirstResponder() {
    caretView_->hide();
    scroll_ = 0;
    setNeedsDisplay();
}

void UITextField::didMoveToSuperview() {
    if (!superview())
        resignFirstResponder();
}

void UITextField::touchesEnded(const Touch& touch) {
    const bool tapped = isTracked(touch) && isHighlighted();
    const double x = touch.locationIn(this).x;
    const runtime::WeakPtr<UITextField> self(this);
    UIControl::touchesEnded(touch);
    if (!self || !tapped || !isEnabled())
        return;
    const TextLayout layout = layoutFor(text_);
    caret_ = std::min(text_.size(), layout.indexAt({x - textOrigin(layout).x, layout.size().height / 2}));
    becomeFirstResponder();
    changed();
}

// Showing

TextLayout UITextField::layoutFor(const std::string& text) const {
    return TextLayout(text, style_, -1);
}

/// Where the text's top left corner lies, in the field's coordinates.
Point UITextField::textOrigin(const TextLayout& layout) const {
    const Rect area = bounds();
    const Size size = layout.size();
    const double spare = std::max(0.0, area.width - 2 * inset - size.width);
    double x = area.x + inset - scroll_;
    if (style_.alignment == TextAlignment::Center)
        x += spare / 2;
    else if (style_.alignment == TextAlignment::Right)
        x += spare;
    return {x, area.y + (area.height - size.height) / 2};
}

void UITextField::showCaret() {
    if (!isFirstResponder())
        return;
    const TextLayout layout = layoutFor(text_);
    const Rect caret = layout.caretRect(caret_);
    const double visible = std::max(0.0, bounds().width - 2 * inset - TextCaret::width);
    const double before = scroll_;
    scroll_ = std::clamp(scroll_, caret.x - visible, std::max(caret.x, caret.x - visible));
    scroll_ = std::clamp(scroll_, 0.0, std::max(0.0, layout.size().width - visible));
    if (scroll_ != before)
        setNeedsDisplay();
    const Point origin = textOrigin(layout);
    caretView_->showAt(caret.offsetBy(origin.x, origin.y));
}

void UITextField::layoutSubviews() {
    showCaret();
}

Size UITextField::sizeThatFits(Size) const {
    const Size size = layoutFor(text_.empty() ? placeholder_ : text_).size();
    return {size.width + 2 * inset + TextCaret::width, size.height};
}

void UITextField::drawContent(Canvas& canvas, Rect bounds) {
    const bool empty = text_.empty();
    if (empty && placeholder_.empty())
        return;
    const TextLayout layout = layoutFor(empty ? placeholder_ : text_);
    const Point origin = textOrigin(layout);
    canvas.save();
    canvas.clipRect(bounds.insetBy(inset / 2, 0));
    canvas.drawText(layout, origin, empty ? placeholderColor : textColor_);
    canvas.restore();
}

} // namespace toolkit
