#include "platform/toolkit/geometry/AffineTransform.h"

#include <cmath>

namespace toolkit {

AffineTransform AffineTransform::rotation(double radians) {
    double cosine = std::cos(radians), sine = std::sin(radians);
    // No double is a quarter turn exactly. What is meant as one shall swap width and height without a
    // remainder.
    if (std::abs(cosine) < 1e-15) {
        cosine = 0;
        sine = sine > 0 ? 1 : -1;
    } else if (std::abs(sine) < 1e-15) {
        sine = 0;
        cosine = cosine > 0 ? 1 : -1;
    }
    return {cosine, sine, -sine, cosine, 0, 0};
}

AffineTransform AffineTransform::then(const AffineTransform& next) const {
    return {a * next.a + b * next.c,
            a * next.b + b * next.d,
            c * next.a + d * next.c,
            c * next.b + d * next.d,
            tx * next.a + ty * next.c + next.tx,
            tx * next.b + ty * next.d + next.ty};
}

AffineTransform AffineTransform::inverted() const {
    const double determinant = a * d - b * c;
    if (determinant == 0 || !std::isfinite(1 / determinant))
        return {};
    return {d / determinant,
            -b / determinant,
            -c / determinant,
            a / determinant,
            (c * ty - d * tx) / determinant,
            (b * tx - a * ty) / determinant};
}

Size AffineTransform::apply(Size size) const {
    return {std::abs(a) * size.width + std::abs(c) * size.height,
            std::abs(b) * size.width + std::abs(d) * size.height};
}

Rect AffineTransform::apply(const Rect& rect) const {
    const Size size = apply(rect.size());
    const Point center = apply(rect.center());
    if (b == 0 && c == 0 && a >= 0 && d >= 0) // exact where the detour over the centre would round
        return {apply(rect.origin()), size};
    return {center.x - size.width / 2, center.y - size.height / 2, size.width, size.height};
}

} // namespace toolkit
