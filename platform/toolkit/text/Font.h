// The system font in a size and weight.
#pragma once

namespace toolkit {

enum class FontWeight { Thin = 200, Light = 300, Regular = 400, Medium = 500, Semibold = 600, Bold = 700 };

struct Font {
    double size = 17; // points
    FontWeight weight = FontWeight::Regular;
    bool monospacedDigits = false;

    static Font system(double size, FontWeight weight = FontWeight::Regular) { return {size, weight, false}; }
    friend bool operator==(const Font&, const Font&) = default;
};

/// The directory of the font files that the system font is taken from; call before the first text is laid
/// out. Fonts of the machine stay available for characters that these lack, unless `pinned` (tests) is set.
void setFontDirectory(const char* realPath, bool pinned);

} // namespace toolkit
