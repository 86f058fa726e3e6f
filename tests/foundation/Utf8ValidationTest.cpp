#include "platform/foundation/Utf8Validation.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

using foundation::isValidUtf8;

TEST(Utf8Validation, TakesSoundTexts) {
    EXPECT_TRUE(isValidUtf8(""));
    EXPECT_TRUE(isValidUtf8({}));
    EXPECT_TRUE(isValidUtf8("plain"));
    EXPECT_TRUE(isValidUtf8("é歌\xF0\x9F\x8E\xB5 and more than eight"));
}

TEST(Utf8Validation, RefusesOthers) {
    for (const char* text :
         {"\xFF", "a\xC3", "\xC3z", "\x80", "12345678\xED\xA0\x80", "\xC0\xAF", "\xF5\x80\x80\x80"})
        EXPECT_FALSE(isValidUtf8(text)) << text;
    EXPECT_FALSE(isValidUtf8(std::string_view("a\0b", 3)));
}

TEST(Utf8Validation, AgreesWithTheSlowWay) {
    std::mt19937 random(1);
    const std::string pieces[] = {"a",    "12345678",          "é", "歌", "\xF0\x9F\x8E\xB5", "\xC3",
                                  "\x80", std::string(1, '\0')};
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (unsigned count = random() % 8; count > 0; --count)
            text += pieces[random() % (round % 2 ? 8 : 5)];
        ASSERT_EQ(isValidUtf8(text), g_utf8_validate_len(text.data(), text.size(), nullptr) != 0) << text;
    }
}
