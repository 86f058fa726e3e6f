#include "platform/foundation/Log.h"

#include <thread>

#include <gtest/gtest.h>

namespace foundation {
namespace {

class LogTest : public testing::Test {
protected:
    LogTest() {
        setLogToStandardError(false);
        clearLog();
    }
    ~LogTest() override {
        clearLog();
        setLogToStandardError(true);
    }
};

TEST_F(LogTest, KeepsLinesInTheirOrder) {
    log("one");
    log("two");
    EXPECT_EQ(loggedLines(), (std::vector<std::string>{"one", "two"}));
    clearLog();
    EXPECT_TRUE(loggedLines().empty());
}

TEST_F(LogTest, MakesOneLineOfWhateverItIsGiven) {
    log("a\nb\rc\x1B[31md\x7F"
        "e\tf");
    log(std::string_view("g\0h", 3));
    log("i\xC2\x85j\xE2\x80\xA8k\xE2\x80\xA9l");
    log("\xC3\xA9\xE2\x80\xA6");
    EXPECT_EQ(loggedLines(), (std::vector<std::string>{"abc[31mdef", "gh", "ijkl", "\xC3\xA9\xE2\x80\xA6"}));
}

TEST_F(LogTest, KeepsTheNewestTenThousandLines) {
    for (int line = 0; line < 10'005; ++line)
        log(std::to_string(line));
    const auto lines = loggedLines();
    ASSERT_EQ(lines.size(), 10'000u);
    EXPECT_EQ(lines.front(), "5");
    EXPECT_EQ(lines.back(), "10004");
}

TEST_F(LogTest, CutsEndlessLinesBetweenCharacters) {
    std::string text = "a";
    while (text.size() < 100'000)
        text += "\xE6\x97\xA5";
    log(text);
    const std::string line = loggedLines().at(0);
    EXPECT_LE(line.size(), 16u * 1024);
    EXPECT_GT(line.size(), 16u * 1024 - 4);
    EXPECT_EQ((line.size() - 1) % 3, 0u);
    EXPECT_TRUE(text.starts_with(line));
}

TEST_F(LogTest, TakesLinesFromAnyThread) {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([] {
            for (int line = 0; line < 500; ++line)
                log("line");
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(loggedLines().size(), 2000u);
}

TEST_F(LogTest, WritesLinesToStandardErrorUnlessItIsTurnedOff) {
    testing::internal::CaptureStderr();
    log("silent");
    setLogToStandardError(true);
    log("heard\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "heard\n");
}

} // namespace
} // namespace foundation
