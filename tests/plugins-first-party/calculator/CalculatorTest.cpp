#include "KeyTranscript.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace calculatorplugin {

namespace {

/// Keys, and what they make a new calculator show.
using Transcript = std::vector<std::pair<std::string, std::string>>;

void expectAll(const Transcript& transcript) {
    for (const auto& [words, display] : transcript)
        EXPECT_EQ(displayAfter(words), display) << words;
}

} // namespace

TEST(Calculator, ShowsWhatIsTyped) {
    expectAll({{"", "0"},
               {"0", "0"},
               {"00", "0"},
               {"007", "7"},
               {"1234567", "1,234,567"},
               {".", "0."},
               {".5", "0.5"},
               {"1.", "1."},
               {"1..5", "1.5"},
               {"1.50", "1.50"},
               {"12345678901234567", "1,234,567,890,123,456"}});
}

TEST(Calculator, DoesTheFourOperations) {
    expectAll({{"2 + 3 =", "5"},
               {"2 - 3 =", "−1"},
               {"2 × 3 =", "6"},
               {"3 ÷ 2 =", "1.5"},
               {"0.1 + 0.2 =", "0.3"},
               {"1.1 × 1.1 =", "1.21"},
               {"10 ÷ 3 =", "3.333333333333333"},
               {"10 ÷ 3 × 3 =", "10"},
               {"9999999999999999 + 1 =", "1e16"}});
}

TEST(Calculator, MultipliesBeforeItAdds) {
    expectAll({{"2 + 3 × 4 =", "14"},
               {"2 + 3 ×", "3"},
               {"2 + 3 × 4 ×", "12"},
               {"2 + 3 × 4 +", "14"},
               {"2 × 3 + 4 × 5 =", "26"},
               {"20 - 6 ÷ 2 =", "17"},
               {"20 - 6 ÷ 2 - 7 =", "10"},
               {"2 + 3 +", "5"},
               {"8 ÷ 4 ÷ 2 =", "1"}});
}

TEST(Calculator, ReplacesAnOperatorByTheNext) {
    expectAll({{"2 + × 3 =", "6"},
               {"2 × + 3 =", "5"},
               {"2 + 3 × + 4 =", "9"},
               {"2 + 3 + × 4 =", "14"},
               {"2 + 3 × - + × 4 =", "14"},
               {"6 ÷ 0 + ", "Error"}});
}

TEST(Calculator, RepeatsTheLastOperation) {
    expectAll({{"2 + 3 = =", "8"},
               {"2 + 3 = = =", "11"},
               {"2 × 3 = =", "18"},
               {"2 + 3 × 4 = =", "56"},
               {"2 + 3 = 10 =", "13"},
               {"2 + 3 = C C 10 =", "10"},
               {"7 = =", "7"},
               {"2 + 3 = + 1 = =", "7"}});
}

TEST(Calculator, TakesTheShownNumberWhenNoneIsGiven) {
    expectAll({{"5 + =", "10"},
               {"5 + = =", "15"},
               {"5 × =", "25"},
               {"2 + 3 × =", "11"},
               {"2 + 3 + =", "10"},
               {"+ 3 =", "3"},
               {"- 3 =", "−3"}});
}

TEST(Calculator, ContinuesWithAResultOrBeginsAnew) {
    expectAll({{"2 + 3 = + 4 =", "9"}, {"2 + 3 = 4", "4"}, {"2 + 3 = .", "0."}, {"2 + 3 = ± × 2 =", "−10"}});
}

TEST(Calculator, ReckonsPercentages) {
    expectAll({{"5 %", "0.05"},
               {"200 + 10 %", "20"},
               {"200 + 10 % =", "220"},
               {"200 - 10 % =", "180"},
               {"200 × 10 % =", "20"},
               {"200 ÷ 10 % =", "2,000"},
               {"100 + 200 × 10 % =", "120"},
               {"200 + %", "400"},
               {"50 % %", "0.005"},
               {"2 + 3 = %", "0.05"},
               {"50 % 7", "7"}});
}

TEST(Calculator, ChangesTheSign) {
    expectAll({{"5 ±", "−5"},
               {"5 ± ±", "5"},
               {"± 5", "−5"},
               {"±", "−0"},
               {"0 ±", "−0"},
               {"0 ± 5", "−5"},
               {"1.5 ± 2", "−1.52"},
               {"5 + ±", "−0"},
               {"5 + ± 3 =", "2"},
               {"5 × 3 ± =", "−15"},
               {"2 + 3 = ±", "−5"}});
}

TEST(Calculator, ClearsTheNumberFirstAndThenEverything) {
    expectAll({{"5 C", "0"},
               {"5 + 3 C", "0"},
               {"5 + 3 C 4 =", "9"},
               {"5 + 3 C =", "5"},
               {"5 + 3 C C 4 =", "4"},
               {"5 + C 4 =", "4"},
               {"5 + 3 = C", "0"}});
    Calculator calculator;
    EXPECT_FALSE(calculator.clearsNumberOnly());
    pressAll(calculator, "5");
    EXPECT_TRUE(calculator.clearsNumberOnly());
    pressAll(calculator, "+");
    EXPECT_FALSE(calculator.clearsNumberOnly());
    pressAll(calculator, "3");
    EXPECT_TRUE(calculator.clearsNumberOnly());
    pressAll(calculator, "C");
    EXPECT_FALSE(calculator.clearsNumberOnly());
    EXPECT_EQ(calculator.calculation(), "5 +");
    pressAll(calculator, "C");
    EXPECT_EQ(calculator.calculation(), "");
}

TEST(Calculator, TakesBackTypedDigitsOnly) {
    expectAll({{"123 <", "12"},
               {"1.5 <", "1."},
               {"1.5 < <", "1"},
               {"5 <", "0"},
               {"5 ± <", "0"},
               {"<", "0"},
               {"2 + 3 = <", "5"},
               {"2 + <", "2"},
               {"12 + 34 < =", "15"}});
}

TEST(Calculator, KeepsANumberInMemory) {
    expectAll({{"MR", "0"},
               {"5 M+ C MR", "5"},
               {"5 M+ M+ MR", "10"},
               {"5 M+ 2 M- MR", "3"},
               {"5 M+ 3 + MR =", "8"},
               {"5 M+ 7", "7"},
               {"2 + 3 M+ =", "5"},
               {"2 + 3 = M+ C MR", "5"},
               {"5 M+ MC MR", "0"},
               {"5 M+ C C C MR", "5"},
               {"0.1 M+ 0.2 M+ MR", "0.3"},
               {"5 M+ MR 3", "3"},
               {"2 + M+ MR + 1 =", "5"}});
    Calculator calculator;
    EXPECT_FALSE(calculator.hasMemory());
    pressAll(calculator, "5 M+");
    EXPECT_TRUE(calculator.hasMemory());
    pressAll(calculator, "C MC");
    EXPECT_FALSE(calculator.hasMemory());
}

TEST(Calculator, SaysErrorAndRecovers) {
    expectAll({{"5 ÷ 0 =", "Error"},
               {"0 ÷ 0 =", "Error"},
               {"5 ÷ 0 +", "Error"},
               {"2 + 5 ÷ 0 = + 3 =", "3"},
               {"5 ÷ 0 = ±", "Error"},
               {"5 ÷ 0 = %", "Error"},
               {"5 ÷ 0 = <", "Error"},
               {"5 ÷ 0 = M+", "Error"},
               {"5 ÷ 0 = = =", "Error"},
               {"5 ÷ 0 = 7", "7"},
               {"5 ÷ 0 = .", "0."},
               {"5 ÷ 0 = C", "0"},
               {"3 M+ 5 ÷ 0 = MR", "3"},
               {"3 M+ 5 ÷ 0 = MC", "Error"}});
}

TEST(Calculator, SaysErrorWhenNumbersGrowTooGreat) {
    Calculator calculator;
    pressAll(calculator, "9999999999 × =");
    for (int i = 0; i < 60; ++i)
        pressAll(calculator, "× =");
    EXPECT_EQ(calculator.display(), "Error");
    pressAll(calculator, "1 + 1 =");
    EXPECT_EQ(calculator.display(), "2");
}

TEST(Calculator, SaysWhatItReckons) {
    Calculator calculator;
    pressAll(calculator, "1200 + 3 ×");
    EXPECT_EQ(calculator.calculation(), "1,200 + 3 ×");
    EXPECT_EQ(calculator.awaitingOperator(), Operator::Multiply);
    pressAll(calculator, "4");
    EXPECT_EQ(calculator.awaitingOperator(), std::nullopt);
    pressAll(calculator, "=");
    EXPECT_EQ(calculator.calculation(), "1,200 + 3 × 4 =");
    pressAll(calculator, "=");
    EXPECT_EQ(calculator.calculation(), "1,212 × 4 =");
    pressAll(calculator, "5");
    EXPECT_EQ(calculator.calculation(), "");
}

} // namespace calculatorplugin
