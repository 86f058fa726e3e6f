#include "hosts/media/library/DirectoryWalk.h"

#include "tests/support/TemporaryDirectory.h"

#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace playback {
namespace {

using testing::ElementsAre;

class DirectoryWalkTest : public testing::Test {
protected:
    void touch(const std::string& name) {
        const auto path = directory.path() / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << "12345";
    }
    void link(const std::string& target, const std::string& name) {
        std::filesystem::create_symlink(target, directory.path() / name);
    }
    std::vector<std::string> found(const std::vector<std::string>& starts = {""}) {
        DirectoryWalk walk(cancelled);
        for (const auto& start : starts)
            walk.visit(directory.path() / start);
        std::vector<std::string> names;
        for (const MusicFile& file : walk.files())
            names.push_back(std::filesystem::path(file.path).lexically_relative(directory.path()));
        return names;
    }

    tests::TemporaryDirectory directory;
    std::atomic<bool> cancelled = false;
};

TEST_F(DirectoryWalkTest, FindsAudioFilesInOrder) {
    touch("b/2.mp3");
    touch("b/1.flac");
    touch("a.ogg");
    touch("cover.jpg");
    touch(".hidden/3.mp3");
    touch("._4.mp3");
    EXPECT_THAT(found(), ElementsAre("a.ogg", "b/1.flac", "b/2.mp3"));
}

TEST_F(DirectoryWalkTest, KnowsAFileByItsTimeAndSize) {
    touch("a.mp3");
    DirectoryWalk walk(cancelled);
    walk.visit(directory.path());
    struct stat status {};
    ASSERT_EQ(stat((directory.path() / "a.mp3").c_str(), &status), 0);
    const MusicFile& file = walk.files().at(0);
    EXPECT_EQ(file.path, directory.path() / "a.mp3");
    EXPECT_EQ(file.size, 5u);
    EXPECT_EQ(file.modified / 1'000'000'000, status.st_mtim.tv_sec);
}

TEST_F(DirectoryWalkTest, FollowsLinksButVisitsADirectoryOnce) {
    touch("music/a/1.mp3");
    touch("elsewhere/2.mp3");
    link("../../music", "music/a/loop");
    link(".", "music/self");
    link("../elsewhere", "music/other");
    link("a/1.mp3", "music/linked.mp3");
    link("nowhere.mp3", "music/dangling.mp3");
    EXPECT_THAT(found({"music"}), ElementsAre("music/a/1.mp3", "music/linked.mp3", "music/other/2.mp3"));
}

TEST_F(DirectoryWalkTest, FindsAFileOnceInDirectoriesThatOverlap) {
    touch("music/a/1.mp3");
    touch("music/2.mp3");
    EXPECT_THAT(found({"music/a", "music", "music/a"}), ElementsAre("music/a/1.mp3", "music/2.mp3"));
}

TEST_F(DirectoryWalkTest, LeavesOutWhatIsNoFile) {
    touch("directory.mp3/inside.mp3");
    ASSERT_EQ(mkfifo((directory.path() / "pipe.mp3").c_str(), 0600), 0);
    EXPECT_THAT(found(), ElementsAre("directory.mp3/inside.mp3"));
    EXPECT_THAT(found({"missing", "pipe.mp3"}), ElementsAre());
}

TEST_F(DirectoryWalkTest, KeepsNamesThatAreNoText) {
    touch("\xFF\xFE.mp3");
    EXPECT_THAT(found(), ElementsAre("\xFF\xFE.mp3"));
}

TEST_F(DirectoryWalkTest, GoesOnlySoDeep) {
    std::string path;
    for (int depth = 0; depth < 100; ++depth)
        path += "d/";
    touch(path + "deep.mp3");
    touch("d/d/near.mp3");
    EXPECT_THAT(found(), ElementsAre("d/d/near.mp3"));
}

TEST_F(DirectoryWalkTest, EndsWhenItIsCancelled) {
    touch("a.mp3");
    cancelled = true;
    EXPECT_THAT(found(), ElementsAre());
}

TEST_F(DirectoryWalkTest, LeavesOutWhatCannotBeRead) {
    using std::filesystem::perms;
    touch("locked/1.mp3");
    touch("open/2.mp3");
    touch("open/3.mp3");
    std::filesystem::permissions(directory.path() / "locked", perms::none);
    std::filesystem::permissions(directory.path() / "open/3.mp3", perms::owner_write);
    if (geteuid() == 0) // whom nothing is locked for
        EXPECT_THAT(found(), ElementsAre("locked/1.mp3", "open/2.mp3", "open/3.mp3"));
    else
        EXPECT_THAT(found(), ElementsAre("open/2.mp3"));
    std::filesystem::permissions(directory.path() / "locked", perms::owner_all);
}

} // namespace
} // namespace playback
