#include "platform/toolkit/animation/AnimatableValue.h"

#include <cmath>

namespace toolkit {

namespace {

/// One coordinate of a cubic Bézier curve from 0 to 1 with the inner control values `first` and `second`.
double bezier(double first, double second, double s) {
    const double rest = 1 - s;
    return 3 * rest * rest * s * first + 3 * rest * s * s * second + s * s * s;
}

double bezierSlope(double first, double second, double s) {
    const double rest = 1 - s;
    return 3 * rest * rest * first + 6 * rest * s * (second - first) + 3 * s * s * (1 - second);
}

/// The curve's parameter where its time is `t`. Newton's steps, kept inside a bracket that bisection narrows
/// where the slope is too flat for them.
double parameterAt(double firstX, double secondX, double t) {
    double low = 0, high = 1, s = t;
    for (int step = 0; step < 100; ++step) {
        const double error = bezier(firstX, secondX, s) - t;
        if (std::abs(error) < 1e-15)
            break;
        (error > 0 ? high : low) = s;
        const double slope = bezierSlope(firstX, secondX, s);
        double next = slope > 0 ? s - error / slope : low;
        if (!(next > low && next < high))
            next = (low + high) / 2;
        if (next == s)
            break;
        s = next;
    }
    return s;
}

double cubicCurve(Point first, Point second, double t) {
    return bezier(first.y, second.y, parameterAt(first.x, second.x, t));
}

double mix(double from, double to, double progress) {
    return from + (to - from) * progress;
}
Point mix(Point from, Point to, double p) {
    return {mix(from.x, to.x, p), mix(from.y, to.y, p)};
}
Size mix(Size from, Size to, double p) {
    return {mix(from.width, to.width, p), mix(from.height, to.height, p)};
}
Rect mix(const Rect& from, const Rect& to, double p) {
    return {mix(from.origin(), to.origin(), p), mix(from.size(), to.size(), p)};
}
AffineTransform mix(const AffineTransform& from, const AffineTransform& to, double p) {
    return {mix(from.a, to.a, p), mix(from.b, to.b, p),   mix(from.c, to.c, p),
            mix(from.d, to.d, p), mix(from.tx, to.tx, p), mix(from.ty, to.ty, p)};
}
Color mix(Color from, Color to, double p) {
    return {mix(from.red, to.red, p), mix(from.green, to.green, p), mix(from.blue, to.blue, p),
            mix(from.alpha, to.alpha, p)};
}

} // namespace

double curveValue(AnimationCurve curve, double t) {
    if (!(t > 0))
        return 0;
    if (t >= 1)
        return 1;
    switch (curve) {
    case AnimationCurve::EaseInOut:
        return cubicCurve({0.42, 0}, {0.58, 1}, t);
    case AnimationCurve::EaseIn:
        return cubicCurve({0.42, 0}, {1, 1}, t);
    case AnimationCurve::EaseOut:
        return cubicCurve({0, 0}, {0.58, 1}, t);
    case AnimationCurve::Linear:
        break;
    }
    return t;
}

AnimatableValue interpolate(const AnimatableValue& from, const AnimatableValue& to, double progress) {
    // The ends are answered as they are: from + (to - from) need not give `to` back to the last bit.
    if (progress == 1 || from.index() != to.index())
        return to;
    return std::visit(
        [&](const auto& start) -> AnimatableValue {
            return mix(start, std::get<std::decay_t<decltype(start)>>(to), progress);
        },
        from);
}

} // namespace toolkit
