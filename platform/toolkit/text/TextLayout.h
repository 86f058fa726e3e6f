// Text that has been broken into lines and measured. Main thread only.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"
#include "platform/toolkit/text/Font.h"

#include <memory>
#include <string>

namespace toolkit {

enum class TextAlignment { Left, Center, Right };
enum class LineBreak { WordWrap, TruncateTail };

struct TextStyle {
    Font font;
    TextAlignment alignment = TextAlignment::Left;
    LineBreak lineBreak = LineBreak::TruncateTail;
    int numberOfLines = 1; // 0: as many as it takes
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

class TextLayout {
public:
    /// Lays `text` (UTF-8, made whole where broken; at most 1 MB of it) out in `width` points; a width below
    /// 0 means without limit. Plain text always: nothing in it is markup.
    TextLayout(const std::string& text, const TextStyle& style, double width);
    ~TextLayout();
    TextLayout(TextLayout&&) noexcept;
    TextLayout& operator=(TextLayout&&) noexcept;

    /// Width and height in points, rounded up to whole half points.
    Size size() const;
    double baseline() const;
    /// The width within which alignment takes place.
    double layoutWidth() const;
    const std::string& text() const;
    const TextStyle& style() const;
    /// The caret's rectangle before the byte at `index`.
    Rect caretRect(std::size_t index) const;
    /// The byte index nearest to a point.
    std::size_t indexAt(Point p) const;

    struct Native;
    const Native& native() const { return *native_; }

private:
    std::unique_ptr<Native> native_;
};

} // namespace toolkit
