// What happened in a test, one line each, in order. Numbers are written to six decimals at most, so that
// lines can be compared.
#pragma once

#include "platform/toolkit/geometry/Geometry.h"

#include <cmath>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace support {

class Transcript {
public:
    template <class... Parts>
    void add(const Parts&... parts) {
        std::string line;
        ((line += text(parts)), ...);
        lines_.push_back(std::move(line));
    }
    /// The lines since the last take().
    std::vector<std::string> take() { return std::exchange(lines_, {}); }

private:
    static std::string text(const std::string& part) { return part; }
    static std::string text(const char* part) { return part; }
    static std::string text(bool part) { return part ? "true" : "false"; }
    template <class Number>
    requires std::is_arithmetic_v<Number>
    static std::string text(Number number) {
        const double rounded = std::round(static_cast<double>(number) * 1e6) / 1e6;
        std::ostringstream stream;
        stream.precision(12);
        stream << (rounded == 0 ? 0.0 : rounded); // without the sign of a negative zero
        return stream.str();
    }
    static std::string text(toolkit::Point point) { return "(" + text(point.x) + ", " + text(point.y) + ")"; }
    static std::string text(const toolkit::Rect& rect) {
        return "(" + text(rect.x) + ", " + text(rect.y) + ", " + text(rect.width) + ", " + text(rect.height) +
               ")";
    }

    std::vector<std::string> lines_;
};

} // namespace support
