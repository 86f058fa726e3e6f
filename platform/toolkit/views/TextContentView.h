// What a text view shows: its text, drawn in strips as high as the text view itself.
//
// Only the strips that are looked at exist, so that a text of any length costs no more than a few screens of
// pixels. Coordinates are those of the text view's content. Owned by its text view. Main thread only.
#pragma once

#include "platform/toolkit/views/TextBlocks.h"
#include "platform/toolkit/views/UIView.h"

#include <map>

namespace toolkit {

class TextContentView : public UIView {
    RUNTIME_CLASS()
public:
    /// `insets` lie between the content's edges and the text.
    explicit TextContentView(EdgeInsets insets);

    TextBlocks& blocks() { return blocks_; }
    const TextBlocks& blocks() const { return blocks_; }
    void setTextColor(Color color);
    Color textColor() const { return textColor_; }
    EdgeInsets insets() const { return insets_; }

    /// The width of the content, insets included.
    void setContentWidth(double width);
    /// The height that the text takes, insets included.
    double contentHeight() const;
    /// Makes the strips that the region needs, at most `maximumStrips` of them from the top, and lets go of
    /// the others. Measures what the region shows; true when that has changed the content's height.
    bool show(double top, double bottom, double stripHeight);
    /// Whether show() of the region has nothing to do.
    bool shows(double top, double bottom, double stripHeight) const;
    /// The text has changed: every strip is drawn again.
    void invalidate();

    Rect caretRect(std::size_t index);
    std::size_t indexAt(Point point);
    std::size_t stripCount() const { return strips_.size(); }

private:
    class Strip;
    static constexpr long maximumStrips = 8;
    struct StripRange {
        long first = 0;
        long last = -1;
    };
    StripRange stripsWithin(double top, double bottom, double stripHeight) const;
    void drawStrip(Canvas& canvas, double top, Rect bounds);

    TextBlocks blocks_;
    EdgeInsets insets_;
    Color textColor_ = Color::black();
    double stripHeight_ = 0;
    std::map<long, std::shared_ptr<Strip>> strips_; // by number, from the content's top
};

} // namespace toolkit
