#include "platform/foundation/DecodedFiles.h"

#include <gtest/gtest.h>

namespace {

using foundation::DecodedFiles;
using foundation::PropertyList;

std::vector<std::uint8_t> listWith(const std::string& value) {
    const std::string text =
        "<plist version=\"1.0\"><dict><key>k</key><string>" + value + "</string></dict></plist>";
    return {text.begin(), text.end()};
}

TEST(DecodedFiles, TheSameBytesAreDecodedOnce) {
    DecodedFiles files;
    const auto first = files.decode("/a", listWith("one"));
    ASSERT_TRUE(first);
    EXPECT_EQ(files.decode("/a", listWith("one")), first);
}

TEST(DecodedFiles, OtherBytesOfTheSameLengthAreSeen) {
    DecodedFiles files;
    files.decode("/a", listWith("one"));
    EXPECT_EQ(files.decode("/a", listWith("two"))->at("k"), PropertyList("two"));
}

TEST(DecodedFiles, FilesAreKeptApartAndDamagedOnesAnswerNothing) {
    DecodedFiles files;
    files.decode("/a", listWith("one"));
    EXPECT_EQ(files.decode("/b", listWith("two"))->at("k"), PropertyList("two"));
    EXPECT_EQ(files.decode("/a", {'x'}), nullptr);
    EXPECT_EQ(files.decode("/a", {'x'}), nullptr);
    EXPECT_EQ(files.decode("/a", listWith("one"))->at("k"), PropertyList("one"));
}

TEST(DecodedFiles, LargeFilesAreNotHeld) {
    DecodedFiles files;
    const std::string large(DecodedFiles::largestFile, 'x');
    const auto first = files.decode("/a", listWith(large));
    ASSERT_TRUE(first);
    EXPECT_NE(files.decode("/a", listWith(large)), first);
}

TEST(DecodedFiles, OnlySoManyAreHeld) {
    DecodedFiles files;
    const auto first = files.decode("/first", listWith("one"));
    for (std::size_t i = 0; i < DecodedFiles::mostFiles; ++i)
        files.decode("/" + std::to_string(i), listWith("two"));
    EXPECT_NE(files.decode("/first", listWith("one")), first);
}

} // namespace
