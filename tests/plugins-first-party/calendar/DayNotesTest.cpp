#include "plugins/calendar/DayNotes.h"

#include "plugins/calendar/DateText.h"
#include "tests/plugins/PluginTest.h"

#include <random>

namespace calendarplugin {

class DayNotesTest : public plugins::PluginTest {
protected:
    DayNotes load() {
        return DayNotes(storage_, [this](std::string_view line) { lines_.emplace_back(line); });
    }
    static Date day(const std::string& text) { return dateFromIsoText(text).value(); }

    plugins::PluginStorage storage_{"org.example.calendar"};
    std::vector<std::string> lines_;
};

TEST_F(DayNotesTest, OutliveARestart) {
    DayNotes notes = load();
    notes.set(day("2024-02-29"), "  leap\tday \n");
    notes.set(day("2024-03-01"), "gone again");
    notes.set(day("2024-03-01"), "");
    EXPECT_TRUE(notes.isUnsaved());
    EXPECT_TRUE(notes.save());
    EXPECT_FALSE(notes.isUnsaved());
    DayNotes again = load();
    EXPECT_EQ(again.of(day("2024-02-29")), "leap day");
    EXPECT_FALSE(again.has(day("2024-03-01")));
    EXPECT_TRUE(lines_.empty());
}

TEST_F(DayNotesTest, AreLinesOfBoundedLengthCutBetweenCharacters) {
    EXPECT_EQ(singleLine("\x01\n a \x7f b \n"), "a   b");
    EXPECT_EQ(singleLine(" \n\t"), "");
    std::string umlauts;
    for (int i = 0; i < 300; ++i)
        umlauts += "ä";
    EXPECT_EQ(singleLine("x" + umlauts).size(), 399u);
}

TEST_F(DayNotesTest, ACutOffFileIsSetAsideAndWhatItHoldsIsUsed) {
    DayNotes notes = load();
    notes.set(day("2024-01-01"), "first");
    notes.set(day("2024-01-02"), "second");
    ASSERT_TRUE(notes.save());
    const std::string whole = *storage_.read(DayNotes::fileName);
    const std::string cut = whole.substr(0, whole.find("second") + 3);
    ASSERT_TRUE(storage_.write(DayNotes::fileName, cut));
    DayNotes damaged = load();
    EXPECT_EQ(damaged.of(day("2024-01-01")), "first");
    EXPECT_EQ(storage_.read("damaged-1-days.txt"), cut);
    EXPECT_EQ(lines_.size(), 1u);
    damaged.set(day("2024-01-03"), "third");
    ASSERT_TRUE(damaged.save());
    EXPECT_EQ(load().of(day("2024-01-03")), "third");
    EXPECT_EQ(storage_.read("damaged-1-days.txt"), cut);
}

TEST_F(DayNotesTest, EveryWayToCutTheFileIsNoticed) {
    DayNotes notes = load();
    notes.set(day("2024-01-01"), "first");
    ASSERT_TRUE(notes.save());
    const std::string whole = *storage_.read(DayNotes::fileName);
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        lines_.clear();
        ASSERT_TRUE(storage_.write(DayNotes::fileName, whole.substr(0, length)));
        load();
        EXPECT_EQ(lines_.size(), 1u) << length;
    }
}

TEST_F(DayNotesTest, BearAnyBytes) {
    std::mt19937 random(7); // any fixed number
    for (int round = 0; round < 40; ++round) {
        std::string bytes = "vela calendar 1\n2024-01-01 x\ndays: 1\n";
        for (int i = 0; i < 5; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        ASSERT_TRUE(storage_.write(DayNotes::fileName, bytes));
        DayNotes notes = load();
        notes.set(day("2024-05-05"), "after");
        ASSERT_TRUE(notes.save());
        ASSERT_EQ(load().of(day("2024-05-05")), "after");
    }
}

TEST_F(DayNotesTest, AFileThatCannotBeReadIsNotWrittenOver) {
    const auto directory = *files().realPath(plugins::PluginStorage::directoryFor("org.example.calendar"));
    std::filesystem::create_directories(directory / DayNotes::fileName); // a directory in its place
    DayNotes notes = load();
    notes.set(day("2024-01-01"), "text");
    EXPECT_FALSE(notes.save());
    EXPECT_TRUE(notes.isUnsaved());
    EXPECT_TRUE(std::filesystem::is_directory(directory / DayNotes::fileName));
}

} // namespace calendarplugin
