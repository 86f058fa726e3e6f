// A path of lines, curves and arcs, in points.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

#include <variant>
#include <vector>

namespace toolkit {

class Path {
public:
    struct Move {
        Point to;
        friend bool operator==(const Move&, const Move&) = default;
    };
    struct Line {
        Point to;
        friend bool operator==(const Line&, const Line&) = default;
    };
    struct Curve {
        Point control1, control2, to;
        friend bool operator==(const Curve&, const Curve&) = default;
    };
    /// Radians, clockwise on a screen from the x axis.
    struct Arc {
        Point center;
        double radius, start, end;
        friend bool operator==(const Arc&, const Arc&) = default;
    };
    struct Close {
        friend bool operator==(const Close&, const Close&) = default;
    };
    using Element = std::variant<Move, Line, Curve, Arc, Close>;

    static Path rect(Rect rect);
    static Path roundedRect(Rect rect, double radius);
    static Path ellipse(Rect rect);

    Path& moveTo(Point p) { return add(Move{p}); }
    Path& lineTo(Point p) { return add(Line{p}); }
    Path& curveTo(Point c1, Point c2, Point p) { return add(Curve{c1, c2, p}); }
    Path& arc(Point center, double radius, double start, double end) {
        return add(Arc{center, radius, start, end});
    }
    Path& close() { return add(Close{}); }

    const std::vector<Element>& elements() const { return elements_; }
    friend bool operator==(const Path&, const Path&) = default;

private:
    Path& add(Element element) {
        elements_.push_back(element);
        return *this;
    }
    std::vector<Element> elements_;
};

} // namespace toolkit
