#include "KeyTranscript.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace calculatorplugin {

TEST(CalculatorState, OutlivesARestartAtEveryPoint) {
    const std::string transcripts[] = {"",          "5",          "0 ±",      "1.50",          "2 +",
                                       "2 + 3 ×",   "2 + 3 × 4",  "2 + 3 = ", "2 + 3 × 4 = =", "5 ÷ 0 =",
                                       "5 M+ 3 + ", "200 + 10 %", "5 + 3 C",  "7 M- 1 ÷ 3 ="};
    const std::string continuations[] = {
        "=", "4 =", "× 4 =", "± 1 + 2 =", "MR + 1 =", "C 1 =", "< 9 =", "% ="};
    for (const std::string& before : transcripts)
        for (const std::string& after : continuations) {
            Calculator calculator;
            pressAll(calculator, before);
            Calculator restarted(readState(written(calculator.state())));
            ASSERT_EQ(restarted.state(), calculator.state()) << before;
            pressAll(calculator, after);
            pressAll(restarted, after);
            EXPECT_EQ(restarted.display(), calculator.display()) << before << " | " << after;
            EXPECT_EQ(restarted.calculation(), calculator.calculation()) << before << " | " << after;
        }
}

TEST(CalculatorState, WhatCannotBeUnderstoodIsAsIfItWereNotThere) {
    const CalculatorState nothing;
    for (const char* text : {"",
                             "\n\n",
                             "typed",
                             "typed ",
                             "typed 1e5",
                             "typed abc",
                             "typed 12345678901234567890",
                             "typed .5",
                             "given x",
                             "awaited 5",
                             "sum",
                             "sum ?",
                             "sum + ",
                             "sum +5",
                             "sum * 5",
                             "product + 5",
                             "repetition",
                             "memory",
                             "memory M",
                             "\xff\xfe\n\0",
                             "error no"})
        EXPECT_EQ(readState(text), nothing) << text;
    EXPECT_EQ(readState("finished " + std::string(5000, '1')), nothing);
    EXPECT_EQ(readState("nonsense\ngiven 5e0\nmore").value, *Decimal::parse("5"));
}

TEST(CalculatorState, AnyBytesMakeAUsableCalculator) {
    std::mt19937 random(20240607); // any fixed number
    Calculator example;
    pressAll(example, "5 M+ 1200 + 3 ×");
    const std::string text = written(example.state());
    for (int round = 0; round < 2000; ++round) {
        std::string broken = text;
        for (int i = 0; i < 4; ++i)
            broken[random() % broken.size()] = static_cast<char>(random());
        Calculator calculator(readState(broken));
        pressAll(calculator, "± 1 < + 2 × 3 % = = C C 1 + 1 =");
        ASSERT_EQ(calculator.display(), "2") << broken;
    }
}

} // namespace calculatorplugin
