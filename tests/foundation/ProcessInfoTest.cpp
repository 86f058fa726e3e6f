#include "platform/foundation/ProcessInfo.h"

#include <gtest/gtest.h>

namespace foundation {
namespace {

TEST(ProcessInfo, ComparesVersionsFieldByField) {
    EXPECT_LT(compareVersionsNumerically("9.3", "9.3.3"), 0);
    EXPECT_GT(compareVersionsNumerically("10.0", "9.3"), 0);
    EXPECT_GT(compareVersionsNumerically("9.10", "9.9"), 0);
    EXPECT_EQ(compareVersionsNumerically("9.3.3", "9.3.3"), 0);
    EXPECT_EQ(compareVersionsNumerically("9.03", "9.3.0"), 0);
    EXPECT_LT(compareVersionsNumerically("", "0.1"), 0);
}

TEST(ProcessInfo, ComparesFieldsOfAnyLength) {
    const std::string huge(100, '9');
    EXPECT_LT(compareVersionsNumerically("9." + huge, "10"), 0);
    EXPECT_GT(compareVersionsNumerically("9." + huge, "9.1"), 0);
    EXPECT_LT(compareVersionsNumerically("9." + huge, "9.1" + huge), 0);
}

TEST(ProcessInfo, CountsFieldsThatAreNoNumbersAsZero) {
    EXPECT_EQ(compareVersionsNumerically("9.x", "9.0"), 0);
    EXPECT_EQ(compareVersionsNumerically("9..1", "9.0.1"), 0);
    EXPECT_LT(compareVersionsNumerically("beta", "1"), 0);
}

} // namespace
} // namespace foundation
