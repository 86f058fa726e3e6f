#include "platform/foundation/FileStamp.h"

#include "platform/foundation/FileManager.h"
#include "tests/support/TemporaryDirectory.h"

#include <string_view>

#include <gtest/gtest.h>

namespace foundation {
namespace {

struct FileStampTest : testing::Test {
    FileStampTest() { FileManager::shared().setDeviceRoot(directory.path()); }
    void write(std::string_view text) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
        ASSERT_TRUE(FileManager::shared().writeAtomically("/file", {bytes, text.size()}));
    }
    /// What the calls up to the first that finds nothing new answer, as a count.
    int toldTimes() {
        int times = 0;
        while (stamp.mayHaveChanged())
            ++times;
        return times;
    }
    ::tests::TemporaryDirectory directory;
    FileStamp stamp{"/file"};
};

TEST_F(FileStampTest, TellsAChangeTwice) {
    write("one");
    EXPECT_EQ(toldTimes(), 2);
    EXPECT_FALSE(stamp.mayHaveChanged());
    write("two");
    EXPECT_EQ(toldTimes(), 2);
}

TEST_F(FileStampTest, AChangeBetweenTheTwoIsToldTwiceAsWell) {
    write("one");
    EXPECT_TRUE(stamp.mayHaveChanged());
    write("two");
    EXPECT_EQ(toldTimes(), 2);
}

TEST_F(FileStampTest, AMissingFileThatComesAndGoesHasChanged) {
    EXPECT_EQ(toldTimes(), 2) << "the first calls, whatever there is";
    write("one");
    EXPECT_EQ(toldTimes(), 2);
    FileManager::shared().removeFile("/file");
    EXPECT_EQ(toldTimes(), 2);
}

TEST_F(FileStampTest, LooksBelowTheRootAsItNowStands) {
    write("one");
    toldTimes();
    ::tests::TemporaryDirectory other;
    FileManager::shared().setDeviceRoot(other.path());
    EXPECT_TRUE(stamp.mayHaveChanged());
}

} // namespace
} // namespace foundation
