// How numbers are written on the display: "1,234.5", "−0.25", "1.5e20".
#pragma once

#include "Decimal.h"

#include <string>
#include <string_view>

namespace calculatorplugin {

class NumberText {
public:
    /// The most digits that are typed and, outside of powers of ten, shown.
    static constexpr int mostDigits = 16;

    /// Rounded to what is shown; in powers of ten when it is too great or too small for that.
    static std::string ofValue(const Decimal& value);
    /// A number while it is typed ("-1234.50"): every digit stays, also zeros at the end.
    static std::string ofTyping(std::string_view typed);

private:
    static std::string plain(const Decimal& value);
    static std::string scientific(const Decimal& value);
};

} // namespace calculatorplugin
