#include "platform/foundation/PropertyListCoding.h"

#include "tests/support/TemporaryDirectory.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

namespace foundation {
namespace {

std::optional<PropertyList> decode(std::string_view text, const PropertyListLimits& limits = {}) {
    return decodePropertyList({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, limits);
}

std::optional<PropertyList> decodeElement(const std::string& element) {
    return decode("<plist version=\"1.0\">" + element + "</plist>");
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    for (std::size_t count = 0; count < times; ++count)
        result += text;
    return result;
}

std::string nestedArrays(std::size_t depth) {
    return "<plist>" + repeated("<array>", depth) + repeated("</array>", depth) + "</plist>";
}

PropertyList everyKind() {
    return PropertyList::Dictionary{
        {"Enable", true},
        {"Off", false},
        {"Grabber height", 0.35},
        {"Least", std::numeric_limits<std::int64_t>::min()},
        {"Greatest", std::numeric_limits<std::int64_t>::max()},
        {"Text", "a < b & \"c\" > 'd'\t\n\r end"},
        {" spaces ", "  kept  "},
        {"Unicode", "\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x8E\xB5"},
        {"Empty", ""},
        {"", "empty key"},
        {"Data", PropertyList::Data{0, 1, 2, 253, 254, 255}},
        {"No data", PropertyList::Data{}},
        {"Date", PropertyList::Date{500000000}},
        {"Before", PropertyList::Date{-86400 * 365}},
        {"Array", PropertyList::Array{1, "two", 3.5, PropertyList::Array{}, PropertyList::Dictionary{}}},
    };
}

TEST(PropertyListCoding, ReadsBackEveryKindOfValueThatItWrites) {
    const auto read = decode(encodePropertyList(everyKind()));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, everyKind());
}

TEST(PropertyListCoding, WritesTheSameValueAsTheSameText) {
    const PropertyList value = PropertyList::Dictionary{{"b", 0.1}, {"a", PropertyList::Array{true}}};
    EXPECT_EQ(encodePropertyList(value), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                         "<plist version=\"1.0\">\n"
                                         "<dict>\n"
                                         "\t<key>a</key>\n"
                                         "\t<array>\n"
                                         "\t\t<true/>\n"
                                         "\t</array>\n"
                                         "\t<key>b</key>\n"
                                         "\t<real>0.1</real>\n"
                                         "</dict>\n"
                                         "</plist>\n");
}

TEST(PropertyListCoding, ReadsBackRealsToTheLastBit) {
    for (const double value : {0.1, 1.0 / 3, 1e-300, 1.7976931348623157e308, -0.35, 5e-324, 60.0}) {
        const auto read = decode(encodePropertyList(value));
        ASSERT_TRUE(read && read->isReal()) << value;
        EXPECT_EQ(read->doubleValue(), value);
    }
    EXPECT_TRUE(std::isnan(decode(encodePropertyList(std::nan("")))->doubleValue()));
    EXPECT_EQ(decode(encodePropertyList(-INFINITY))->doubleValue(), -INFINITY);
}

TEST(PropertyListCoding, LeavesOutWhatXmlCannotHold) {
    const PropertyList value(std::string("a\x01"
                                         "b\0c\xFF"
                                         "d\xED\xA0\x80"
                                         "e\xEF\xBF\xBF"
                                         "f\xC3",
                                         17));
    const auto read = decode(encodePropertyList(value));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, PropertyList("abcdef"));
    const auto nil = decode(encodePropertyList(PropertyList::Dictionary{{"a", PropertyList()}, {"b", 1}}));
    EXPECT_EQ(nil, PropertyList(PropertyList::Dictionary{{"b", 1}}));
}

TEST(PropertyListCoding, WritesDatesOfAnyNumberInYearsOfFourDigits) {
    EXPECT_NE(encodePropertyList(PropertyList::Date{0}).find("<date>2001-01-01T00:00:00Z</date>"),
              std::string::npos);
    EXPECT_NE(encodePropertyList(PropertyList::Date{1e300}).find("<date>9999-"), std::string::npos);
    EXPECT_NE(encodePropertyList(PropertyList::Date{-INFINITY}).find("<date>0001-"), std::string::npos);
    EXPECT_NE(encodePropertyList(PropertyList::Date{std::nan("")}).find("<date>2001-"), std::string::npos);
}

TEST(PropertyListCoding, ReadsWhatOtherWritersWrite) {
    const auto read =
        decode("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<!DOCTYPE plist PUBLIC \"-//ANY//DTD PLIST 1.0//EN\" \"http://localhost/p.dtd\">\n"
               "<!-- settings -->\n<plist version=\"1.0\">\n<dict>\n"
               "<key>a</key><string>x &lt;&#65;&#x42;&amp;<![CDATA[<y>&]]></string>\n"
               "<!-- <dict> --><key>b</key><integer> 7 </integer>\n"
               "<key>c</key><array ><true /><false></false></array>\n"
               "<key>d</key><data>\n\tSGVs\n\tbG8=\n</data>\n"
               "</dict></plist>\n<!-- end -->\n");
    ASSERT_TRUE(read);
    EXPECT_EQ((*read)["a"], PropertyList("x <AB&<y>&"));
    EXPECT_EQ((*read)["b"], PropertyList(7));
    EXPECT_EQ((*read)["c"], PropertyList(PropertyList::Array{true, false}));
    EXPECT_EQ((*read)["d"], PropertyList(PropertyList::Data{'H', 'e', 'l', 'l', 'o'}));
}

TEST(PropertyListCoding, ClampsIntegersBeyondItsRange) {
    EXPECT_EQ(decodeElement("<integer>18446744073709551615</integer>"),
              PropertyList(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(decodeElement("<integer>9223372036854775808</integer>"),
              PropertyList(std::numeric_limits<std::int64_t>::max()));
    EXPECT_EQ(decodeElement("<integer>-9223372036854775808</integer>"),
              PropertyList(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(decodeElement("<integer>-1</integer>"), PropertyList(-1));
}

TEST(PropertyListCoding, ReadsRealsAlikeInEveryLocale) {
    // A locale whose decimals have a comma, made here, for few machines have it installed.
    const tests::TemporaryDirectory directory;
    const std::string locale = directory.path() / "comma";
    if (std::system(("localedef -i de_DE -f UTF-8 --no-archive " + locale + " >/dev/null 2>&1").c_str()) != 0)
        GTEST_SKIP() << "the machine has no sources of locales";
    setenv("LOCPATH", directory.path().c_str(), 1);
    ASSERT_NE(std::setlocale(LC_ALL, "comma"), nullptr);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    const std::string written = encodePropertyList(0.35);
    const auto read = decode(written);
    const double number = PropertyList("0.35").doubleValue();
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
    EXPECT_NE(written.find("<real>0.35</real>"), std::string::npos);
    EXPECT_EQ(read, PropertyList(0.35));
    EXPECT_EQ(number, 0.35);
}

TEST(PropertyListCoding, AnswersNothingForEveryTruncatedText) {
    const std::string whole = encodePropertyList(everyKind());
    const std::size_t end = whole.find("</plist>") + std::string_view("</plist>").size();
    for (std::size_t length = 0; length < end; ++length)
        EXPECT_FALSE(decode(std::string_view(whole).substr(0, length))) << length;
}

TEST(PropertyListCoding, AnswersNothingForWhatIsNoPropertyList) {
    for (const char* text : {"",
                             " ",
                             "hello",
                             "<",
                             "<>",
                             "</>",
                             "<plist>",
                             "<plist/>",
                             "<plist></plist>",
                             "</plist>",
                             "<html></html>",
                             "<plist><dict></plist>",
                             "<plist><dict></array></plist>",
                             "<plist><dict><key>a</key></dict></plist>x",
                             "<plist><dict/></plist><plist><dict/></plist>",
                             "<plist><plist><dict/></plist></plist>",
                             "<plist><array>text</array></plist>",
                             "<plist><other/></plist>",
                             "<plist><dict><string>no key</string></dict></plist>",
                             "<plist><string>&broken</string></plist>",
                             "<plist><string a=\">\">x</string></plist>",
                             "<plist><!-- open <dict/></plist>",
                             "<plist><string><![CDATA[open</string></plist>",
                             "<plist><string>\xFF</string></plist>"})
        EXPECT_FALSE(decode(text)) << text;
    EXPECT_FALSE(decode(std::string_view("<plist><string>a\0b</string></plist>", 36)));
}

TEST(PropertyListCoding, AcceptsNoDeclarationsAndNoEntitiesOfADocumentsOwn) {
    EXPECT_FALSE(decode("<!DOCTYPE plist [<!ENTITY a \"aaaa\">]><plist><string>&a;</string></plist>"));
    EXPECT_FALSE(decode("<!DOCTYPE plist [ ]><plist><string>a</string></plist>"));
    EXPECT_FALSE(decode("<!ENTITY a \"b\"><plist><string>a</string></plist>"));
    EXPECT_FALSE(decode("<!DOCTYPE plist><!DOCTYPE plist><plist><string>a</string></plist>"));
    EXPECT_FALSE(decode("<plist><!DOCTYPE plist><string>a</string></plist>"));
    for (const char* entity : {"&a;", "&;", "&", "&amp", "&amplifier;", "&#;", "&#x;", "&#xG;", "&#0;",
                               "&#99999999999;", "&#x110000;", "&#-5;"})
        EXPECT_FALSE(decodeElement(std::string("<string>") + entity + "</string>")) << entity;
}

TEST(PropertyListCoding, MakesValidTextOfReferencesToNoCharacters) {
    const auto read = decodeElement("<string>a&#xD800;b</string>");
    if (read) {
        ASSERT_NE(read->string(), nullptr);
        EXPECT_EQ(read->string()->find("\xED\xA0\x80"), std::string::npos);
    }
}

TEST(PropertyListCoding, ReadsNoDeeperThanItsLimit) {
    EXPECT_TRUE(decode(nestedArrays(128)));
    EXPECT_FALSE(decode(nestedArrays(129)));
    EXPECT_FALSE(decode(nestedArrays(1'000'000)));
    EXPECT_FALSE(decode("<plist>" + repeated("<array>", 1'000'000)));
    EXPECT_FALSE(decode("<plist>" + repeated("<dict><key>a</key>", 500'000)));
    EXPECT_FALSE(decode("<plist>" + repeated("<string>", 1'000'000)));
}

TEST(PropertyListCoding, ReadsNoMoreNodesAndBytesThanItsLimits) {
    const std::string text = "<plist><array>" + repeated("<true/>", 99) + "</array></plist>";
    PropertyListLimits limits;
    limits.maximumNodes = 100;
    EXPECT_TRUE(decode(text, limits));
    limits.maximumNodes = 99;
    EXPECT_FALSE(decode(text, limits));
    limits = {};
    limits.maximumBytes = text.size();
    EXPECT_TRUE(decode(text, limits));
    limits.maximumBytes = text.size() - 1;
    EXPECT_FALSE(decode(text, limits));
}

TEST(PropertyListCoding, SurvivesEverySingleWrongByte) {
    const std::string whole = encodePropertyList(everyKind());
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const char wrong : {'\0', '<', '>', '&', '"', '/', '\xFF', '9'}) {
            std::string changed = whole;
            changed[at] = wrong;
            // Whatever comes of it can be written and read again.
            const auto read = decode(changed);
            EXPECT_TRUE(!read || decode(encodePropertyList(*read))) << at << " " << wrong;
        }
}

} // namespace
} // namespace foundation
