#include "platform/toolkit/views/TextContentView.h"

#include <cmath>

namespace toolkit {

/// A part of the text as high as the text view.
class TextContentView::Strip : public UIView {
public:
    Strip(TextContentView& owner, Rect frame) : UIView(frame), owner_(&owner), top_(frame.y) {
        setUserInteractionEnabled(false);
    }
    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override {
        if (owner_)
            owner_->drawStrip(canvas, top_, bounds);
    }

private:
    runtime::WeakPtr<TextContentView> owner_;
    double top_;
};

runtime::Class& TextContentView::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<TextContentView>("TextContentView", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(TextContentView)

TextContentView::TextContentView(EdgeInsets insets) : insets_(insets) {
    setUserInteractionEnabled(false);
}

void TextContentView::setTextColor(Color color) {
    textColor_ = color;
    invalidate();
}

void TextContentView::setContentWidth(double width) {
    const double textWidth = std::max(0.0, width - insets_.left - insets_.right);
    if (textWidth == blocks_.width())
        return;
    blocks_.setWidth(textWidth);
    setFrame({0, 0, width, contentHeight()});
    invalidate();
}

double TextContentView::contentHeight() const {
    return insets_.top + blocks_.height() + insets_.bottom;
}

TextContentView::StripRange TextContentView::stripsWithin(double top, double bottom,
                                                          double stripHeight) const {
    const long first = static_cast<long>(std::floor(top / stripHeight));
    const long last = static_cast<long>(std::ceil(bottom / stripHeight)) - 1;
    return {first, std::min(last, first + maximumStrips - 1)};
}

bool TextContentView::shows(double top, double bottom, double stripHeight) const {
    top = std::clamp(top, 0.0, contentHeight());
    bottom = std::clamp(bottom, top, contentHeight());
    if (stripHeight != stripHeight_ || !blocks_.isMeasured(top - insets_.top, bottom - insets_.top))
        return false;
    if (!(stripHeight > 0))
        return true;
    const StripRange seen = stripsWithin(top, bottom, stripHeight);
    if (strips_.empty() || seen.last < seen.first)
        return strips_.empty() && seen.last < seen.first;
    // Strips lie without gaps: the first and the last one stand for all.
    return strips_.begin()->first == seen.first && strips_.rbegin()->first == seen.last;
}

bool TextContentView::show(double top, double bottom, double stripHeight) {
    top = std::clamp(top, 0.0, contentHeight());
    bottom = std::clamp(bottom, top, contentHeight());
    const bool grown = blocks_.measure(top - insets_.top, bottom - insets_.top);
    if (grown || stripHeight != stripHeight_) {
        for (const auto& [number, strip] : strips_)
            strip->removeFromSuperview();
        strips_.clear();
    }
    stripHeight_ = stripHeight;
    if (!(stripHeight > 0))
        return grown;
    const StripRange seen = stripsWithin(top, bottom, stripHeight);
    std::erase_if(strips_, [&](const auto& entry) {
        const bool unseen = entry.first < seen.first || entry.first > seen.last;
        if (unseen)
            entry.second->removeFromSuperview();
        return unseen;
    });
    for (long number = seen.first; number <= seen.last; ++number) {
        if (strips_.contains(number))
            continue;
        const Rect frame(0, static_cast<double>(number) * stripHeight, bounds().width, stripHeight);
        strips_[number] = std::make_shared<Strip>(*this, frame);
        addSubview(strips_[number]);
    }
    return grown;
}

void TextContentView::invalidate() {
    for (const auto& [number, strip] : strips_) {
        strip->setFrame({0, strip->frame().y, bounds().width, stripHeight_});
        strip->setNeedsDisplay();
    }
}

void TextContentView::drawStrip(Canvas& canvas, double top, Rect bounds) {
    canvas.save();
    canvas.clipRect(bounds);
    const double textTop = top - insets_.top;
    blocks_.forEachWithin(textTop, textTop + bounds.height, [&](const TextLayout& layout, double y) {
        canvas.drawText(layout, {bounds.x + insets_.left, bounds.y + y - textTop}, textColor_);
    });
    canvas.restore();
}

Rect TextContentView::caretRect(std::size_t index) {
    return blocks_.caretRect(index).offsetBy(insets_.left, insets_.top);
}

std::size_t TextContentView::indexAt(Point point) {
    return blocks_.indexAt({point.x - insets_.left, point.y - insets_.top});
}

} // namespace toolkit
