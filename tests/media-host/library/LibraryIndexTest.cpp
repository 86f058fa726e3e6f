#include "hosts/media/library/LibraryIndex.h"

#include "platform/foundation/FileManager.h"
#include "tests/support/TemporaryDirectory.h"

#include <fstream>
#include <random>

#include <gtest/gtest.h>

namespace playback {
namespace {

std::vector<LibraryEntry> someEntries() {
    LibraryEntry song{{"/music/\xFFnot text.mp3", 1'234'567'890'123'456'789, 42}, SongTags{}};
    song.tags->title = "Title";
    song.tags->artist = "Künstlerin";
    song.tags->album = "Album";
    song.tags->albumArtist = "Various";
    song.tags->composer = "Composer";
    song.tags->genre = "Genre";
    song.tags->trackNumber = 3;
    song.tags->discNumber = 1;
    song.tags->duration = 200.25;
    song.tags->hasCover = true;
    return {song, {{"/music/none.mp3", -5, 0}, std::nullopt}, {{"/music/plain.mp3", 0, 1}, SongTags{}}};
}

class LibraryIndexTest : public testing::Test {
protected:
    LibraryIndexTest() { foundation::FileManager::shared().setDeviceRoot(directory.path()); }
    std::filesystem::path file() const { return directory.path() / "cache/songs.index"; }

    tests::TemporaryDirectory directory;
    LibraryIndex index{"/cache/songs.index"};
};

TEST_F(LibraryIndexTest, KeepsWhatWasWritten) {
    EXPECT_TRUE(index.read().empty());
    ASSERT_TRUE(index.write(someEntries()));
    EXPECT_EQ(index.read(), someEntries());
    ASSERT_TRUE(index.write({}));
    EXPECT_TRUE(index.read().empty());
}

TEST_F(LibraryIndexTest, CountsAsEmptyWhereverItIsDamaged) {
    const auto whole = LibraryIndex::encode(someEntries());
    for (std::size_t place = 0; place < whole.size(); ++place) {
        auto damaged = whole;
        damaged[place] ^= 0x20;
        EXPECT_FALSE(LibraryIndex::decode(damaged)) << place;
        EXPECT_FALSE(LibraryIndex::decode(std::span(whole).first(place))) << place;
    }
    EXPECT_TRUE(LibraryIndex::decode(whole));
}

TEST_F(LibraryIndexTest, IsReplacedAsAWhole) {
    std::filesystem::create_directories(file().parent_path());
    std::ofstream(file()) << "something else";
    EXPECT_TRUE(index.read().empty());
    EXPECT_TRUE(index.write(someEntries()));
    EXPECT_EQ(index.read().size(), 3u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(file().parent_path()), {}), 1)
        << "nothing half written stays beside it";
}

TEST_F(LibraryIndexTest, SaysWhenItCannotBeWritten) {
    std::ofstream(directory.path() / "cache") << "a file where the directory should be";
    EXPECT_FALSE(index.write(someEntries()));
}

} // namespace
} // namespace playback
