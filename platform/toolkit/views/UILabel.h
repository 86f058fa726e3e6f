// Text in one style. Touches pass through it unless interaction is switched on.
#pragma once

#include "platform/toolkit/text/TextLayout.h"
#include "platform/toolkit/views/UIView.h"

#include <string>

namespace toolkit {

class UILabel : public UIView {
    RUNTIME_CLASS()
public:
    explicit UILabel(Rect frame = {});

    const std::string& text() const { return text_; }
    void setText(std::string text);
    Font font() const { return style_.font; }
    void setFont(Font font);
    Color textColor() const { return textColor_; }
    void setTextColor(Color color);
    /// A soft edge around the letters, by which they are read on any ground; clear for none.
    void setTextEdge(Color color);
    TextAlignment textAlignment() const { return style_.alignment; }
    void setTextAlignment(TextAlignment alignment);
    int numberOfLines() const { return style_.numberOfLines; }
    void setNumberOfLines(int lines);
    /// Width of text that does not fit is made up by smaller type, down to this fraction of the font size.
    void setMinimumScaleFactor(double factor);

    Size sizeThatFits(Size size) const override;
    void describeProperties(nlohmann::json& properties) const override;
    bool drawsContent() const override { return !text_.empty(); }
    void drawContent(Canvas& canvas, Rect bounds) override;

private:
    void changed();
    TextStyle styleForWidth(double width) const;
    std::string text_;
    TextStyle style_;
    Color textColor_ = Color::black();
    Color textEdge_ = Color::clear();
    double minimumScaleFactor_ = 1;
};

} // namespace toolkit
