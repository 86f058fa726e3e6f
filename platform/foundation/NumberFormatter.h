// Writes numbers for people to read.
//
// What is shown is rounded to whole units, halves to the even one. Any thread.
#pragma once

#include <string>

namespace foundation {

enum class NumberFormatterStyle { Decimal, Percent };

class NumberFormatter {
public:
    NumberFormatterStyle numberStyle() const { return style_; }
    void setNumberStyle(NumberFormatterStyle style) { style_ = style; }

    /// In percent style 0.5 is "50%". What is no number is "NaN".
    std::string stringFromNumber(double number) const;

private:
    NumberFormatterStyle style_ = NumberFormatterStyle::Decimal;
};

} // namespace foundation
