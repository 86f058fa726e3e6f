#include "platform/toolkit/views/UILabel.h"

#include <algorithm>

namespace toolkit {

namespace {

constexpr double edgeReach = 0.5; // points

} // namespace

runtime::Class& UILabel::staticClass() {
    static auto& cls = runtime::ClassBuilder<UILabel>("UILabel", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UILabel)

UILabel::UILabel(Rect frame) : UIView(frame) {
    setUserInteractionEnabled(false);
}

void UILabel::setText(std::string text) {
    if (text == text_)
        return;
    text_ = std::move(text);
    changed();
}

void UILabel::setFont(Font font) {
    if (font == style_.font)
        return;
    style_.font = font;
    changed();
}

void UILabel::setTextColor(Color color) {
    if (color == textColor_)
        return;
    textColor_ = color;
    changed();
}

void UILabel::setTextEdge(Color color) {
    if (color == textEdge_)
        return;
    textEdge_ = color;
    changed();
}

void UILabel::setTextAlignment(TextAlignment alignment) {
    if (alignment == style_.alignment)
        return;
    style_.alignment = alignment;
    changed();
}

void UILabel::setNumberOfLines(int lines) {
    lines = std::max(0, lines);
    if (lines == style_.numberOfLines)
        return;
    style_.numberOfLines = lines;
    changed();
}

void UILabel::setMinimumScaleFactor(double factor) {
    factor = std::clamp(factor, 0.0, 1.0);
    if (factor == minimumScaleFactor_)
        return;
    minimumScaleFactor_ = factor;
    changed();
}

void UILabel::changed() {
    setNeedsDisplay();
}

Size UILabel::sizeThatFits(Size size) const {
    if (text_.empty())
        return {};
    // A single line asks for all the width that it needs; several lines fill the width that there is.
    const bool wraps = style_.numberOfLines != 1 && size.width > 0;
    return TextLayout(text_, style_, wraps ? size.width : -1).size();
}

TextStyle UILabel::styleForWidth(double width) const {
    TextStyle style = style_;
    if (minimumScaleFactor_ >= 1 || style_.numberOfLines != 1)
        return style;
    const double natural = TextLayout(text_, style_, -1).size().width;
    if (natural > width)
        style.font.size *= std::max(minimumScaleFactor_, width / natural);
    return style;
}

void UILabel::drawContent(Canvas& canvas, Rect bounds) {
    if (bounds.isEmpty())
        return;
    const TextLayout layout(text_, styleForWidth(bounds.width), bounds.width);
    const double top = bounds.y + (bounds.height - layout.size().height) / 2;
    if (!textEdge_.isClear())
        for (const auto& [dx, dy] : {Point{-edgeReach, 0}, {edgeReach, 0}, {0, -edgeReach}, {0, edgeReach}})
            canvas.drawText(layout, {bounds.x + dx, top + dy}, textEdge_);
    canvas.drawText(layout, {bounds.x, top}, textColor_);
}

} // namespace toolkit
