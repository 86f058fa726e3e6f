#include "platform/foundation/PropertyListCoding.h"

#include <limits>

#include <gtest/gtest.h>

namespace foundation {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Builds binary property lists, sound ones and others: every object is given as its bytes.
class Binary {
public:
    std::uint8_t add(const Bytes& object) {
        offsets_.push_back(bytes_.size());
        bytes_.insert(bytes_.end(), object.begin(), object.end());
        return static_cast<std::uint8_t>(offsets_.size() - 1);
    }
    std::uint8_t add(const std::string& text) {
        Bytes object{static_cast<std::uint8_t>(0x50 + text.size())};
        object.insert(object.end(), text.begin(), text.end());
        return add(object);
    }
    void setOffset(std::size_t object, std::size_t offset) { offsets_[object] = offset; }

    /// Offsets of two bytes, references of one.
    Bytes finish(std::uint8_t root) const { return finish(root, offsets_.size(), bytes_.size(), 2, 1); }
    Bytes finish(std::uint64_t root, std::uint64_t count, std::uint64_t table, std::uint8_t offsetSize,
                 std::uint8_t referenceSize) const {
        Bytes whole = bytes_;
        for (const std::size_t offset : offsets_)
            append(whole, offset, 2);
        whole.insert(whole.end(), {0, 0, 0, 0, 0, 0, offsetSize, referenceSize});
        append(whole, count, 8);
        append(whole, root, 8);
        append(whole, table, 8);
        return whole;
    }
    std::size_t size() const { return bytes_.size(); }

private:
    static void append(Bytes& bytes, std::uint64_t number, int size) {
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            bytes.push_back(static_cast<std::uint8_t>(number >> shift));
    }

    Bytes bytes_ = {'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    std::vector<std::size_t> offsets_;
};

Bytes everyKind() {
    Binary binary;
    const std::vector<std::uint8_t> keys = {binary.add("flag"), binary.add("small"), binary.add("minus"),
                                            binary.add("real"), binary.add("data"),  binary.add("wide"),
                                            binary.add("date"), binary.add("list"),  binary.add("huge")};
    const std::vector<std::uint8_t> values = {
        binary.add(Bytes{0x09}),
        binary.add(Bytes{0x10, 200}),
        binary.add(Bytes{0x13, 255, 255, 255, 255, 255, 255, 255, 254}),
        binary.add(Bytes{0x23, 0x3F, 0xE0, 0, 0, 0, 0, 0, 0}),
        binary.add(Bytes{0x42, 7, 8}),
        binary.add(Bytes{0x63, 0x00, 0xE9, 0xD8, 0x3C, 0xDF, 0xB5}),
        binary.add(Bytes{0x33, 0x40, 0x59, 0, 0, 0, 0, 0, 0}),
        binary.add(Bytes{0xA2, 0, 1}),
        binary.add(Bytes{0x14, 0, 0, 0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 255, 255, 255, 255})};
    Bytes dictionary{static_cast<std::uint8_t>(0xD0 + keys.size())};
    dictionary.insert(dictionary.end(), keys.begin(), keys.end());
    dictionary.insert(dictionary.end(), values.begin(), values.end());
    return binary.finish(binary.add(dictionary));
}

TEST(BinaryPropertyList, ReadsEveryKindOfValue) {
    const auto read = decodePropertyList(everyKind());
    ASSERT_TRUE(read);
    EXPECT_EQ((*read)["flag"], PropertyList(true));
    EXPECT_EQ((*read)["small"], PropertyList(200));
    EXPECT_EQ((*read)["minus"], PropertyList(-2));
    EXPECT_EQ((*read)["real"], PropertyList(0.5));
    EXPECT_EQ((*read)["data"], PropertyList(PropertyList::Data{7, 8}));
    EXPECT_EQ((*read)["wide"], PropertyList("\xC3\xA9\xF0\x9F\x8E\xB5"));
    EXPECT_EQ((*read)["date"], PropertyList(PropertyList::Date{100}));
    EXPECT_EQ((*read)["list"], PropertyList(PropertyList::Array{"flag", "small"}));
    EXPECT_EQ((*read)["huge"], PropertyList(std::numeric_limits<std::int64_t>::max()));
}

TEST(BinaryPropertyList, MakesValidTextOfBytesThatAreNone) {
    Binary binary;
    const auto read = decodePropertyList(binary.finish(binary.add(Bytes{0x52, 'a', 0xFF})));
    ASSERT_TRUE(read && read->string());
    EXPECT_EQ(*read->string(), "a\xEF\xBF\xBD");
}

TEST(BinaryPropertyList, RefusesTextsWithNulsAmongTheirCharacters) {
    for (const Bytes& text : std::vector<Bytes>{{0x53, 'a', 0, 'b'}, {0x63, 0, 'a', 0, 0, 0, 'b'}}) {
        Binary binary;
        const std::uint8_t key = binary.add(text);
        EXPECT_FALSE(decodePropertyList(binary.finish(key)));
        EXPECT_FALSE(decodePropertyList(binary.finish(binary.add(Bytes{0xD1, key, key}))));
    }
}

TEST(BinaryPropertyList, SurvivesEveryTruncation) {
    const Bytes whole = everyKind();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decodePropertyList({whole.data(), length})) << length;
}

TEST(BinaryPropertyList, SurvivesEverySingleWrongByte) {
    const Bytes whole = everyKind();
    std::size_t refused = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (int wrong = 0; wrong < 256; ++wrong) {
            Bytes changed = whole;
            changed[at] = static_cast<std::uint8_t>(wrong);
            if (!decodePropertyList(changed))
                ++refused;
        }
    EXPECT_GT(refused, whole.size());
}

TEST(BinaryPropertyList, RefusesAContainerThatHoldsItself) {
    Binary itself;
    EXPECT_FALSE(decodePropertyList(itself.finish(itself.add(Bytes{0xA1, 0}))));
    Binary eachOther;
    eachOther.add(Bytes{0xA1, 1});
    EXPECT_FALSE(decodePropertyList(eachOther.finish(eachOther.add(Bytes{0xA1, 0}))));
    Binary wide;
    EXPECT_FALSE(decodePropertyList(wide.finish(wide.add(Bytes{0xA4, 0, 0, 0, 0}))));
}

TEST(BinaryPropertyList, RefusesASmallFileThatStandsForAnEnormousTree) {
    Binary binary;
    std::uint8_t below = binary.add(Bytes{0x09});
    // Each array holds the one below ten times: ten to the ninth values in some hundred bytes.
    for (int level = 0; level < 9; ++level) {
        Bytes array{0xAA};
        array.insert(array.end(), 10, below);
        below = binary.add(array);
    }
    EXPECT_FALSE(decodePropertyList(binary.finish(below)));
}

TEST(BinaryPropertyList, RefusesTextsThatTogetherPassTheLimitOfBytes) {
    Binary binary;
    const std::uint8_t text = binary.add(std::string(14, 'a'));
    Bytes array{0xAE};
    array.insert(array.end(), 14, text);
    const Bytes whole = binary.finish(binary.add(array));
    PropertyListLimits limits;
    limits.maximumBytes = 14 * 14;
    EXPECT_TRUE(decodePropertyList(whole, limits));
    limits.maximumBytes = 14 * 14 - 1;
    EXPECT_FALSE(decodePropertyList(whole, limits));
}

TEST(BinaryPropertyList, ReadsNoDeeperThanItsLimit) {
    const auto nested = [](int depth) {
        Binary binary;
        std::uint8_t below = binary.add(Bytes{0xA0});
        for (int level = 1; level < depth; ++level)
            below = binary.add(Bytes{0xA1, below});
        return binary.finish(below);
    };
    EXPECT_TRUE(decodePropertyList(nested(128)));
    EXPECT_FALSE(decodePropertyList(nested(129)));
}

TEST(BinaryPropertyList, RefusesTablesAndNumbersThatLieOutsideTheFile) {
    Binary binary;
    const std::uint8_t root = binary.add(Bytes{0xA0});
    const std::size_t table = binary.size();
    ASSERT_TRUE(decodePropertyList(binary.finish(root, 1, table, 2, 1)));
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    EXPECT_FALSE(decodePropertyList(binary.finish(1, 1, table, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(most, 1, table, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 0, table, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 2, table, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, most, table, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, most / 2 + 1, table, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 1, most, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 1, 0, 2, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 1, table, 0, 1)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 1, table, 2, 0)));
    EXPECT_FALSE(decodePropertyList(binary.finish(root, 1, table, 9, 1)));
    binary.setOffset(root, 0);
    EXPECT_FALSE(decodePropertyList(binary.finish(root)));
    binary.setOffset(root, 0xFFFF);
    EXPECT_FALSE(decodePropertyList(binary.finish(root)));
}

TEST(BinaryPropertyList, RefusesObjectsThatReachBeyondTheObjects) {
    for (const Bytes& object : std::vector<Bytes>{
             {0x5F, 0x10, 200, 'a'},                               // a text of 200 bytes
             {0x4F, 0x13, 255, 255, 255, 255, 255, 255, 255, 255}, // data of 2^64-1 bytes
             {0x6F, 0x13, 128, 0, 0, 0, 0, 0, 0, 1, 'a', 'b'},     // wide text of 2^63+1 units
             {0xAF, 0x13, 255, 255, 255, 255, 255, 255, 255, 255}, // an array of as many
             {0xDF, 0x13, 128, 0, 0, 0, 0, 0, 0, 1, 0, 0},         // a dictionary whose double runs over
             {0x5F, 0x5F},                                         // a length that is no integer
             {0x5F, 0x14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0}, // a length of 16 bytes
             {0x5F},                                                          // no length at all
             {0x13, 0},                                                       // an integer cut off
             {0x1F},                                                          // an integer of 2^15 bytes
             {0x20, 0},                                                       // a real of one byte
             {0x30, 0},                                                       // a date of one byte
             {0xA1, 5},                                                       // no such object
             {0x70},                                                          // no such kind
             {0xF0}}) {
        Binary binary;
        EXPECT_FALSE(decodePropertyList(binary.finish(binary.add(object)))) << int(object[0]);
    }
}

TEST(BinaryPropertyList, RefusesADictionaryWhoseKeysAreNoTexts) {
    Binary binary;
    const std::uint8_t number = binary.add(Bytes{0x10, 1});
    EXPECT_FALSE(decodePropertyList(binary.finish(binary.add(Bytes{0xD1, number, number}))));
}

} // namespace
} // namespace foundation
