#include "tests/plugins-first-party/FirstPartyTest.h"

namespace plugins {
namespace {

class CalculatorBundleTest : public FirstPartyTest {
protected:
    void keys(const std::vector<std::string>& names) {
        for (const auto& name : names)
            tap(name);
    }
};

TEST_F(CalculatorBundleTest, ReckonsWhatIsTapped) {
    open("Calculator");
    keys({"7", "×", "6", "="});
    EXPECT_TRUE(shows("42"));
    EXPECT_TRUE(shows("7 × 6 ="));
    keys({"AC"});
    EXPECT_FALSE(shows("42"));
}

TEST_F(CalculatorBundleTest, KeepsALongNumberWithinThePanel) {
    open("Calculator");
    for (int i = 0; i < 20; ++i)
        tap("9");
    EXPECT_TRUE(shows("9,999,999,999,999,999"));
}

TEST_F(CalculatorBundleTest, GoesOnWhereItWasAfterARestart) {
    open("Calculator");
    keys({"1", "2", "M+", "+", "3"});
    open("Calculator");
    EXPECT_TRUE(shows("12 +"));
    keys({"="});
    EXPECT_TRUE(shows("15"));
    keys({"MR"});
    EXPECT_TRUE(shows("12"));
}

TEST_F(CalculatorBundleTest, BeginsAnewWithADamagedFile) {
    open("Calculator");
    tap("5");
    PluginStorage storage("org.lanternhub.vela.calculator");
    for (const std::string& name : storage.names())
        ASSERT_TRUE(storage.write(name, std::string(5000, '\xff')));
    open("Calculator");
    keys({"8", "+", "1", "="});
    EXPECT_TRUE(shows("9"));
}

TEST_F(CalculatorBundleTest, NeverWorksByItself) {
    open("Calculator");
    tap("5");
    for (const char* message : {"appDidEnterBackground", "velaDismissed", "velaInvoked", "appBecomeActive"})
        expectRestAfter(message);
}

} // namespace
} // namespace plugins
