#include "plugins/notes/Notebook.h"

#include "plugins/notes/NoteDraft.h"
#include "tests/plugins/PluginTest.h"

namespace notesplugin {

class NotebookTest : public plugins::PluginTest {
protected:
    Notebook load() {
        return Notebook(storage_, [this](std::string_view line) { lines_.emplace_back(line); });
    }
    std::vector<std::string> titles() {
        std::vector<std::string> result;
        for (const auto& summary : load().summaries())
            result.push_back(summary.title);
        return result;
    }

    plugins::PluginStorage storage_{"org.example.notes"};
    std::vector<std::string> lines_;
};

TEST_F(NotebookTest, KeepsNotesOverARestartTheLatestFirst) {
    Notebook notebook = load();
    const auto first = notebook.add("first", 100);
    notebook.add("second", 200);
    ASSERT_TRUE(first);
    EXPECT_THAT(titles(), testing::ElementsAre("second", "first"));
    EXPECT_TRUE(notebook.update(*first, "first, changed", 300));
    EXPECT_THAT(titles(), testing::ElementsAre("first, changed", "second"));
    EXPECT_TRUE(notebook.remove(*first));
    EXPECT_FALSE(notebook.remove(*first));
    EXPECT_FALSE(notebook.update(*first, "gone", 400));
    EXPECT_FALSE(notebook.text(*first));
    EXPECT_THAT(titles(), testing::ElementsAre("second"));
}

TEST_F(NotebookTest, SetsADamagedFileAsideAndNeverWritesOverIt) {
    load().add("sound", 100);
    load().add("damaged soon", 200);
    const std::string whole = *storage_.read("note-2.txt");
    const std::string cut = whole.substr(0, whole.size() - 4);
    ASSERT_TRUE(storage_.write("note-2.txt", cut));
    Notebook notebook = load();
    EXPECT_EQ(notebook.damagedFiles(), 1);
    EXPECT_EQ(lines_.size(), 1u);
    EXPECT_EQ(storage_.read("damaged-1-note-2.txt"), cut);
    EXPECT_FALSE(storage_.read("note-2.txt"));
    const auto added = notebook.add("new", 300);
    EXPECT_NE(added, 2u);
    EXPECT_EQ(storage_.read("damaged-1-note-2.txt"), cut);
    EXPECT_THAT(titles(), testing::ElementsAre("new", "sound"));
}

TEST_F(NotebookTest, TwoDamagedFilesOfOneNumberAreBothKept) {
    ASSERT_TRUE(storage_.write("damaged-1-note-1.txt", "older damage"));
    ASSERT_TRUE(storage_.write("note-1.txt", "newer damage"));
    load();
    EXPECT_EQ(storage_.read("damaged-1-note-1.txt"), "older damage");
    EXPECT_EQ(storage_.read("damaged-2-note-1.txt"), "newer damage");
}

TEST_F(NotebookTest, LeavesOtherFilesAlone) {
    for (const char* name : {"note-0.txt", "note-01.txt", "note-x.txt", "note-1.txt.bak", "settings",
                             "note-99999999999999999999.txt"})
        ASSERT_TRUE(storage_.write(name, "whatever"));
    EXPECT_TRUE(load().summaries().empty());
    EXPECT_EQ(storage_.names().size(), 6u);
    EXPECT_TRUE(lines_.empty());
}

TEST_F(NotebookTest, AFailedWriteLeavesTheOldText) {
    Notebook notebook = load();
    const auto id = notebook.add("old", 100);
    ASSERT_TRUE(id);
    EXPECT_FALSE(notebook.update(*id, std::string(plugins::PluginStorage::largestFile, 'x'), 200));
    EXPECT_EQ(notebook.text(*id), "old");
    EXPECT_THAT(titles(), testing::ElementsAre("old"));
}

TEST_F(NotebookTest, ADraftLeavesNoEmptyFilesBehind) {
    Notebook notebook = load();
    NoteDraft draft(notebook);
    EXPECT_TRUE(draft.save("", 1));
    EXPECT_FALSE(draft.hasFile());
    EXPECT_TRUE(draft.save("text", 2));
    EXPECT_TRUE(draft.save("", 3)); // taken out, but it may come back
    EXPECT_TRUE(draft.hasFile());
    EXPECT_TRUE(draft.leave(""));
    EXPECT_TRUE(storage_.names().empty());
}

} // namespace notesplugin
