// What other processes and a reader see of a write, whatever becomes of the writer.
#include "platform/foundation/FileManager.h"

#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <thread>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace foundation {
namespace {

constexpr const char* path = "/file";

/// A text that shows by itself whether it is whole: one letter, as often as its length says.
std::vector<std::uint8_t> whole(char letter) {
    return std::vector<std::uint8_t>(static_cast<std::size_t>(letter) * 997,
                                     static_cast<std::uint8_t>(letter));
}

bool isWhole(const std::optional<std::vector<std::uint8_t>>& bytes) {
    return bytes && !bytes->empty() && *bytes == whole(static_cast<char>(bytes->front()));
}

[[noreturn]] void writeForEver(const FileManager& files) {
    for (;;)
        for (char letter = 'A'; letter <= 'Z'; ++letter)
            if (!files.writeAtomically(path, whole(letter)))
                _exit(1);
}

TEST(AtomicWrite, LeavesTheOldFileOrTheNewOneWhenTheWriterIsKilled) {
    const tests::TemporaryDirectory directory;
    FileManager files;
    ASSERT_TRUE(files.setDeviceRoot(directory.path()));
    ASSERT_TRUE(files.writeAtomically(path, whole('z')));
    for (int round = 0; round < 20; ++round) {
        const pid_t writer = fork();
        ASSERT_GE(writer, 0);
        if (writer == 0)
            writeForEver(files);
        // Killed once it has been seen at work, a little later in every round.
        int changes = 0;
        for (auto last = files.read(path); changes < 2 + round % 7;) {
            const auto now = files.read(path);
            EXPECT_TRUE(isWhole(now));
            changes += now != last;
            last = now;
        }
        kill(writer, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(writer, &status, 0), writer);
        EXPECT_TRUE(WIFSIGNALED(status));
        EXPECT_TRUE(isWhole(files.read(path)));
        EXPECT_EQ(files.contentsOfDirectory("/"), std::vector<std::string>{"file"});
    }
}

TEST(AtomicWrite, ShowsReadersWholeFilesWhileSeveralWrite) {
    const tests::TemporaryDirectory directory;
    FileManager files;
    ASSERT_TRUE(files.setDeviceRoot(directory.path()));
    ASSERT_TRUE(files.writeAtomically(path, whole('a')));
    std::atomic<int> failures = 0;
    std::vector<std::thread> writers;
    for (char writer = 0; writer < 3; ++writer)
        writers.emplace_back([&files, &failures, writer] {
            for (int round = 0; round < 40; ++round)
                if (!files.writeAtomically(path, whole(static_cast<char>('b' + (round + writer) % 20))))
                    ++failures;
        });
    for (int round = 0; round < 400; ++round)
        EXPECT_TRUE(isWhole(files.read(path)));
    for (auto& writer : writers)
        writer.join();
    EXPECT_EQ(failures, 0);
    EXPECT_TRUE(isWhole(files.read(path)));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
}

TEST(AtomicWrite, KeepsTheOldFileAndNothingElseWhenTheDiskIsFull) {
    const tests::TemporaryDirectory directory;
    FileManager files;
    ASSERT_TRUE(files.setDeviceRoot(directory.path()));
    ASSERT_TRUE(files.writeAtomically(path, whole('a')));
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
        // A limit on the size of files fails a write half-way, as a full disk does.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(files.writeAtomically(path, whole('b')) ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(files.read(path), whole('a'));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1);
}

} // namespace
} // namespace foundation
