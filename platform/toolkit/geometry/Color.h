// A colour: red, green, blue and alpha from 0 to 1, sRGB, not premultiplied.
#pragma once

namespace toolkit {

struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;

    static Color rgba(double red, double green, double blue, double alpha = 1) {
        return {red, green, blue, alpha};
    }
    static Color white(double white, double alpha = 1) { return {white, white, white, alpha}; }
    static Color clear() { return {0, 0, 0, 0}; }
    static Color black() { return white(0); }

    Color withAlpha(double newAlpha) const { return {red, green, blue, newAlpha}; }
    bool isClear() const { return alpha <= 0; }
    friend bool operator==(const Color&, const Color&) = default;
};

} // namespace toolkit
