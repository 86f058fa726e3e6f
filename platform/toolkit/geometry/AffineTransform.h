// A 2-D affine map, row vectors: x' = a·x + c·y + tx, y' = b·x + d·y + ty.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

namespace toolkit {

struct AffineTransform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double tx = 0;
    double ty = 0;

    static AffineTransform translation(double tx, double ty) { return {1, 0, 0, 1, tx, ty}; }
    static AffineTransform scale(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
    /// Radians; positive turns the x axis towards the y axis, clockwise on a screen.
    static AffineTransform rotation(double radians);

    bool isIdentity() const { return *this == AffineTransform(); }
    /// This map first, then `next`.
    AffineTransform then(const AffineTransform& next) const;
    /// The way back; a map that squeezes the plane flat answers the identity.
    AffineTransform inverted() const;
    Point apply(Point p) const { return {a * p.x + c * p.y + tx, b * p.x + d * p.y + ty}; }
    /// The size of the bounding box of a rectangle of this size under the linear part.
    Size apply(Size size) const;
    /// The bounding box of the mapped rectangle.
    Rect apply(const Rect& rect) const;
    friend bool operator==(const AffineTransform&, const AffineTransform&) = default;
};

} // namespace toolkit
