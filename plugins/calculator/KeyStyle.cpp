#include "KeyStyle.h"

#include <algorithm>

namespace calculatorplugin {

using namespace vela::plugin;

namespace {

constexpr double gap = 3; // between the edge of a key's area and what is drawn of it

enum class Kind { Digit, Function, Operator, Memory };

Kind kindOf(Key key) {
    switch (key) {
    case Key::Add:
    case Key::Subtract:
    case Key::Multiply:
    case Key::Divide:
    case Key::Equals:
        return Kind::Operator;
    case Key::Percent:
    case Key::Sign:
    case Key::Clear:
    case Key::Backspace:
        return Kind::Function;
    case Key::MemoryClear:
    case Key::MemoryAdd:
    case Key::MemorySubtract:
    case Key::MemoryRecall:
        return Kind::Memory;
    default:
        return Kind::Digit;
    }
}

std::string_view lettering(Key key, const KeyAppearance& appearance) {
    static constexpr std::string_view digits = "0123456789";
    switch (key) {
    case Key::Point:
        return ".";
    case Key::Add:
        return "+";
    case Key::Subtract:
        return "\u2212";
    case Key::Multiply:
        return "\u00d7";
    case Key::Divide:
        return "\u00f7";
    case Key::Equals:
        return "=";
    case Key::Percent:
        return "%";
    case Key::Sign:
        return "\u00b1";
    case Key::Clear:
        return appearance.clearsNumber ? "C" : "AC";
    case Key::Backspace:
        return "\u232b";
    case Key::MemoryClear:
        return "MC";
    case Key::MemoryAdd:
        return "M+";
    case Key::MemorySubtract:
        return "M\u2212";
    case Key::MemoryRecall:
        return "MR";
    default:
        return digits.substr(static_cast<std::size_t>(key), 1);
    }
}

Color fillOf(Kind kind, const KeyAppearance& appearance) {
    switch (kind) {
    case Kind::Operator:
        if (appearance.isAwaiting)
            return appearance.isPressed ? Color::white(0.85) : Color::white(1);
        return appearance.isPressed ? Color{1, 0.78, 0.4, 1} : colors::orange;
    case Kind::Function:
        return Color::white(1, appearance.isPressed ? 0.5 : 0.3);
    case Kind::Memory:
        return Color::white(1, appearance.isPressed ? 0.32 : 0.07);
    case Kind::Digit:
        break;
    }
    return appearance.isPressed ? colors::pressedFill.withAlpha(0.4) : colors::fill;
}

TextStyle styleOf(Kind kind, double height) {
    switch (kind) {
    case Kind::Operator:
        return {.font = {.size = std::clamp(height * 0.5, 22.0, 36.0), .weight = Weight::Medium},
                .alignment = Alignment::Center};
    case Kind::Function:
        return {.font = {.size = std::clamp(height * 0.38, 18.0, 26.0), .weight = Weight::Medium},
                .alignment = Alignment::Center};
    case Kind::Memory:
        return {.font = {.size = 17, .weight = Weight::Medium}, .alignment = Alignment::Center};
    case Kind::Digit:
        break;
    }
    return {.font = {.size = std::clamp(height * 0.46, 22.0, 32.0)}, .alignment = Alignment::Center};
}

} // namespace

void drawKey(Canvas& canvas, Rect bounds, Key key, const KeyAppearance& appearance) {
    const Kind kind = kindOf(key);
    const Rect shape = bounds.insetBy(gap, gap);
    canvas.fillRounded(shape, std::min(shape.width, shape.height) / 2, fillOf(kind, appearance));
    const bool isInverse = kind == Kind::Operator && appearance.isAwaiting;
    canvas.drawText(lettering(key, appearance), shape, styleOf(kind, shape.height),
                    isInverse ? colors::orange : colors::primary);
}

} // namespace calculatorplugin
