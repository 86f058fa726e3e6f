// Notes that are typed in a process of their own, which is killed in the midst of it.
#include "tests/plugins-first-party/FirstPartyTest.h"
#include "tests/support/BackgroundProcess.h"

#include "plugins/notes/NoteFile.h"

#include <random>

#include <unistd.h>

namespace plugins {
namespace {

class NotesKillTest : public FirstPartyTest {
protected:
    /// Lets the process type and kills it once it has said so of `lines` words; answers the last number it
    /// had typed for certain.
    int typeAndKill(int first, int lines) {
        int output = -1;
        support::BackgroundProcess process(
            {VELA_TYPING_PROCESS, (directory() / "root").string(), std::to_string(first)}, {}, &output);
        EXPECT_TRUE(process.started());
        FILE* stream = fdopen(output, "r");
        int last = first - 1;
        for (int line = 0; line < lines && std::fscanf(stream, "%d", &last) == 1; ++line)
            ;
        process.killNow();
        while (std::fscanf(stream, "%d", &last) == 1)
            ; // what it had said by then
        std::fclose(stream);
        return last;
    }
    /// The text of the note that holds the word `first`.
    static std::string noteWith(int first) {
        const PluginStorage storage("org.lanternhub.vela.notes");
        for (const auto& name : storage.names()) {
            const auto note = notesplugin::decodeNote(storage.read(name).value_or(""));
            EXPECT_TRUE(note) << name;
            if (note && note->text.rfind(std::to_string(first) + " ", 0) == 0)
                return note->text;
        }
        return "";
    }
};

TEST_F(NotesKillTest, NothingThatWasTypedIsLost) {
    open("Notes"); // installs it
    closePlugin();
    std::mt19937 random(5); // any fixed number
    int first = 1;
    for (int round = 0; round < 12; ++round) {
        const int last = typeAndKill(first, 1 + static_cast<int>(random() % 25));
        ASSERT_GE(last, first);
        std::string typed;
        for (int number = first; number <= last; ++number)
            typed += std::to_string(number) + " ";
        const std::string kept = noteWith(first);
        // One word more may have been on its way.
        EXPECT_TRUE(kept == typed || kept == typed + std::to_string(last + 1) + " ") << kept << "\n" << typed;
        first = last + 10;
    }
    open("Notes");
    EXPECT_TRUE(shows("12 notes"));
}

} // namespace
} // namespace plugins
