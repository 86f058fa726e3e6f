#include "platform/toolkit/views/UITextView.h"

#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "platform/toolkit/text/TextBoundaries.h"
#include "platform/toolkit/text/Utf8.h"
#include "platform/toolkit/views/TextCaret.h"
#include "platform/toolkit/views/TextContentView.h"

#include <algorithm>

namespace toolkit {

namespace {
constexpr EdgeInsets textInsets{8, 5, 8, 5};
} // namespace

runtime::Class& UITextView::staticClass() {
    static auto& cls = runtime::ClassBuilder<UITextView>("UITextView", &UIScrollView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UITextView)

UITextView::UITextView(Rect frame)
    : UIScrollView(frame),
      content_(std::make_shared<TextContentView>(textInsets)),
      caretView_(std::make_shared<TextCaret>()) {
    style_.font = Font::system(17);
    style_.numberOfLines = 0;
    style_.lineBreak = LineBreak::WordWrap;
    content_->blocks().setStyle(style_);
    addSubview(content_);
    addSubview(caretView_);
    tap_ = std::make_shared<UITapGestureRecognizer>(nullptr, "tapped:");
    tap_->addHandler([self = runtime::WeakPtr<UITextView>(this)](UIGestureRecognizer& recognizer) {
        if (self && recognizer.state() == GestureState::Ended)
            self->tapped(recognizer.locationInView(self.get()));
    });
    addGestureRecognizer(tap_);
}

UITextView::~UITextView() {
    resignFirstResponder();
}

// Properties

const std::string& UITextView::text() const {
    return content_->blocks().text();
}

void UITextView::setText(std::string text) {
    content_->blocks().setText(wholeUtf8(text, maximumBytes));
    content_->invalidate();
    caret_ = this->text().size();
    setNeedsLayout();
}

void UITextView::setFont(Font font) {
    if (font == style_.font)
        return;
    style_.font = font;
    styleChanged();
}

void UITextView::setTextAlignment(TextAlignment alignment) {
    if (alignment == style_.alignment)
        return;
    style_.alignment = alignment;
    styleChanged();
}

void UITextView::styleChanged() {
    content_->blocks().setStyle(style_);
    content_->invalidate();
    setNeedsLayout();
}

Color UITextView::textColor() const {
    return content_->textColor();
}

void UITextView::setTextColor(Color color) {
    content_->setTextColor(color);
}

void UITextView::setEditable(bool editable) {
    editable_ = editable;
    tap_->setEnabled(editable);
    if (!editable)
        resignFirstResponder();
}

// Typing

void UITextView::insertText(const std::string& text) {
    const std::string whole = wholeUtf8(text, maximumBytes - this->text().size());
    if (!editable_ || whole.empty())
        return;
    content_->blocks().replace(caret_, 0, whole);
    caret_ += whole.size();
    edited();
}

void UITextView::deleteBackward() {
    const std::size_t begin = previousCharacter(text(), caret_);
    if (!editable_ || begin == caret_)
        return;
    content_->blocks().replace(begin, caret_ - begin, "");
    caret_ = begin;
    edited();
}

void UITextView::moveCaret(int characters) {
    for (; characters > 0 && caret_ < text().size(); --characters)
        caret_ = nextCharacter(text(), caret_);
    for (; characters < 0 && caret_ > 0; ++characters)
        caret_ = previousCharacter(text(), caret_);
    scrollToCaret();
}

void UITextView::edited() {
    content_->invalidate();
    updateContentSize();
    scrollToCaret();
    if (textChanged_)
        textChanged_();
}

void UITextView::becameFirstResponder() {
    updateContentSize();
    scrollToCaret();
}

void UITextView::resignedFirstResponder() {
    caretView_->hide();
}

void UITextView::didMoveToSuperview() {
    if (!superview())
        resignFirstResponder();
}

void UITextView::tapped(Point point) {
    if (!editable_)
        return;
    caret_ = std::min(text().size(), content_->indexAt(point));
    becomeFirstResponder();
    showCaret();
}

void UITextView::showCaret() {
    if (isFirstResponder())
        caretView_->showAt(content_->caretRect(caret_));
}

void UITextView::scrollToCaret() {
    if (!isFirstResponder())
        return;
    showCaret();
    const Rect caret = content_->caretRect(caret_);
    if (content_->contentHeight() != contentSize().height)
        updateContentSize(); // looking at the caret's block has measured it
    const Rect visible = bounds();
    // The caret keeps the text's margin to the edges, where the view is high enough for that.
    const double lowest = caret.y - textInsets.top;
    const double highest = caret.maxY() + textInsets.bottom - visible.height;
    const double y = std::clamp(visible.y, std::min(lowest, highest), std::max(lowest, highest));
    if (y != visible.y)
        setContentOffset({visible.x, y});
}

// Layout

Size UITextView::sizeThatFits(Size size) const {
    const double margins = textInsets.left + textInsets.right;
    const auto fitted = [&](const TextBlocks& blocks) {
        return Size{std::min(size.width, blocks.usedWidth() + margins),
                    blocks.height() + textInsets.top + textInsets.bottom};
    };
    const TextBlocks& shown = content_->blocks();
    if (shown.width() == std::max(0.0, size.width - margins))
        return fitted(shown);
    TextBlocks blocks;
    blocks.setStyle(style_);
    blocks.setWidth(std::max(0.0, size.width - margins));
    blocks.setText(text());
    return fitted(blocks);
}

void UITextView::layoutSubviews() {
    updateContentSize();
    if (!isDragging() && !isDecelerating())
        showCaret();
}

void UITextView::updateContentSize() {
    const double width = bounds().width;
    content_->setContentWidth(width);
    const double height = content_->contentHeight();
    content_->setFrame({0, 0, width, height});
    setContentSize({width, height});
    showVisiblePart();
}

void UITextView::setBounds(Rect bounds) {
    UIScrollView::setBounds(bounds);
    // Strips of text that come into sight are made at the next layout: scrolling itself makes nothing.
    const auto [top, bottom] = lookedAt();
    if (!content_->shows(top, bottom, this->bounds().height))
        setNeedsLayout();
}

/// The part of the content that is seen, and what an animated offset passes on its way.
std::pair<double, double> UITextView::lookedAt() const {
    const Rect visible = bounds();
    const Rect shown = std::get<Rect>(layer()->presented(LayerProperty::Bounds));
    return {std::min(visible.y, shown.y), std::max(visible.maxY(), shown.maxY())};
}

void UITextView::showVisiblePart() {
    const auto [top, bottom] = lookedAt();
    if (content_->show(top, bottom, bounds().height))
        setNeedsLayout();
}

} // namespace toolkit
