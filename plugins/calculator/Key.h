// The keys of the calculator.
#pragma once

namespace calculatorplugin {

enum class Key {
    Zero,
    One,
    Two,
    Three,
    Four,
    Five,
    Six,
    Seven,
    Eight,
    Nine,
    Point,
    Add,
    Subtract,
    Multiply,
    Divide,
    Equals,
    Percent,
    Sign,
    Clear,
    Backspace, // the swipe over the display
    MemoryClear,
    MemoryAdd,
    MemorySubtract,
    MemoryRecall,
};

} // namespace calculatorplugin
