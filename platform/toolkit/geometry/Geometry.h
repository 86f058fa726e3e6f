// Points, sizes, rectangles and insets, in points and double precision. Y grows downwards.
#pragma once

#include <algorithm>

namespace toolkit {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool isEmpty() const { return !(width > 0 && height > 0); }
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    Rect() = default;
    Rect(double x, double y, double width, double height) : x(x), y(y), width(width), height(height) {}
    Rect(Point origin, Size size) : x(origin.x), y(origin.y), width(size.width), height(size.height) {}

    Point origin() const { return {x, y}; }
    Size size() const { return {width, height}; }
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    Point center() const { return {x + width / 2, y + height / 2}; }
    bool isEmpty() const { return !(width > 0 && height > 0); }
    /// The left and top edges belong to the rectangle, the right and bottom ones do not.
    bool contains(Point p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }
    bool intersects(const Rect& other) const {
        return x < other.maxX() && other.x < maxX() && y < other.maxY() && other.y < maxY();
    }
    Rect intersection(const Rect& other) const {
        const double left = std::max(x, other.x), top = std::max(y, other.y);
        return {left, top, std::max(0.0, std::min(maxX(), other.maxX()) - left),
                std::max(0.0, std::min(maxY(), other.maxY()) - top)};
    }
    /// The smallest rectangle around both; an empty one adds nothing.
    Rect united(const Rect& other) const {
        if (isEmpty())
            return other;
        if (other.isEmpty())
            return *this;
        const double left = std::min(x, other.x), top = std::min(y, other.y);
        return {left, top, std::max(maxX(), other.maxX()) - left, std::max(maxY(), other.maxY()) - top};
    }
    Rect insetBy(double dx, double dy) const { return {x + dx, y + dy, width - 2 * dx, height - 2 * dy}; }
    Rect offsetBy(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;
    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

} // namespace toolkit
