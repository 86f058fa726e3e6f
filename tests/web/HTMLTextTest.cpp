#include "platform/web/HTMLText.h"

#include <gtest/gtest.h>

namespace {

std::string read(const std::string& bytes, const std::string& contentType = "text/html") {
    return web::htmlText({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, contentType);
}

TEST(HTMLText, TakesSoundUtf8AsItIs) {
    EXPECT_EQ(read("<p>\xC3\xA9</p>"), "<p>é</p>");
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(web::htmlText({}, ""), "");
}

TEST(HTMLText, TakesOtherBytesForWesternEuropean) {
    EXPECT_EQ(read("caf\xE9 \x80"), "café €");
}

TEST(HTMLText, FollowsTheHeader) {
    EXPECT_EQ(read("\xD0\xC9", "text/html; charset=KOI8-R"), "пи");
    EXPECT_EQ(read("\xC3\xA9", "text/html; charset=\"ISO-8859-1\""), "Ã©");
}

TEST(HTMLText, FollowsThePagesOwnDeclaration) {
    EXPECT_EQ(read("<meta charset='koi8-r'>\xD0"), "<meta charset='koi8-r'>п");
    EXPECT_EQ(read("<meta http-equiv=Content-Type content=\"text/html; charset = koi8-r\">\xD0"),
              "<meta http-equiv=Content-Type content=\"text/html; charset = koi8-r\">п");
}

TEST(HTMLText, TrustsTheHeaderMoreThanThePage) {
    EXPECT_EQ(read("<meta charset=utf-8>\xD0", "text/html;charset=koi8-r"), "<meta charset=utf-8>п");
}

TEST(HTMLText, TrustsAByteOrderMarkMost) {
    EXPECT_EQ(read("\xEF\xBB\xBF\xC3\xA9", "text/html;charset=koi8-r"), "é");
    EXPECT_EQ(read(std::string("\xFF\xFE"
                               "a\0\xE9\0",
                               6)),
              "aé");
    EXPECT_EQ(read(std::string("\xFE\xFF\0a\0\xE9", 6)), "aé");
}

TEST(HTMLText, RepairsBrokenUtf8) {
    EXPECT_EQ(read("a\xFF"
                   "b",
                   "text/html; charset=utf-8"),
              "a\uFFFDb");
}

TEST(HTMLText, ReplacesZeros) {
    for (const char* type : {"", "charset=utf-8", "charset=koi8-r"})
        EXPECT_EQ(read(std::string("a\0b", 3), type), "a\uFFFDb") << type;
}

TEST(HTMLText, MakesSomeTextOfAnyBytes) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const char* charset : {"", "nonsense", "utf-16", "//IGNORE", "utf-8//TRANSLIT", "ISO-2022-JP"})
        EXPECT_FALSE(read(all, std::string("text/html; charset=") + charset).empty()) << charset;
}

} // namespace
