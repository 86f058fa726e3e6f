#include "hosts/media/library/IndexedMusicLibrary.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "tests/support/MusicFiles.h"
#include "tests/support/RealTimeTest.h"
#include "tests/support/TemporaryDirectory.h"

#include <fstream>
#include <set>

#include <gmock/gmock.h>

namespace playback {
namespace {

using testing::ElementsAre;

/// On a virtual clock the background's work is done in the next turn.
class IndexedMusicLibraryTest : public testing::Test {
protected:
    IndexedMusicLibraryTest() {
        foundation::RunLoop::setMain(&loop);
        foundation::FileManager::shared().setDeviceRoot(directory.path() / "device");
        std::filesystem::create_directories(music());
        library = std::make_unique<IndexedMusicLibrary>();
    }
    ~IndexedMusicLibraryTest() override {
        library.reset();
        loop.advance(10);
        foundation::RunLoop::setMain(nullptr);
    }

    std::filesystem::path music() const { return directory.path() / "music"; }
    std::filesystem::path indexFile() const {
        return directory.path() / "device/var/mobile/Library/Caches/MusicLibrary/songs.index";
    }
    void make(const std::string& name, std::map<std::string, std::string> tags) const {
        std::filesystem::create_directories((music() / name).parent_path());
        support::makeMusicFile(music() / name, {.seconds = 0.2, .tags = std::move(tags)});
    }
    void read() {
        library->addDirectory(music());
        loop.advance(0.1);
        ASSERT_FALSE(library->isScanning());
    }
    void restart() {
        library = std::make_unique<IndexedMusicLibrary>();
        read();
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const auto& item : *library->songs())
            titles.push_back(*item->valueForProperty(media::MPMediaItemPropertyTitle).string());
        return titles;
    }

    tests::TemporaryDirectory directory;
    foundation::VirtualRunLoop loop;
    std::unique_ptr<IndexedMusicLibrary> library;
};

TEST_F(IndexedMusicLibraryTest, IsEmptyWithoutDirectories) {
    ASSERT_TRUE(library->songs());
    EXPECT_TRUE(library->songs()->empty());
    EXPECT_FALSE(library->song(1));
    EXPECT_TRUE(library->artworkData(1).empty());
    EXPECT_FALSE(library->lyrics(1));
    library->addDirectory(directory.path() / "missing");
    loop.advance(0.1);
    EXPECT_TRUE(library->songs()->empty());
    EXPECT_FALSE(library->isScanning());
}

TEST_F(IndexedMusicLibraryTest, OrdersSongsByArtistAlbumDiscTrackAndTitle) {
    make("1.flac", {{"title", "Last"}, {"artist", "b"}});
    make("2.flac", {{"title", "Second"}, {"artist", "A"}, {"album", "X"}, {"track", "10"}});
    make("3.flac", {{"title", "First"}, {"artist", "a"}, {"album", "x"}, {"track", "9"}});
    make("4.flac", {{"title", "Third"}, {"artist", "A"}, {"album", "X"}, {"track", "1"}, {"disc", "2"}});
    make("5.flac", {{"title", "Fourth"}, {"artist", "A"}, {"album", "XY"}});
    make("Unnamed.flac", {});
    read();
    EXPECT_THAT(titles(), ElementsAre("Unnamed", "First", "Second", "Third", "Fourth", "Last"));
}

TEST_F(IndexedMusicLibraryTest, GivesItemsTheirProperties) {
    make("My Song%.mp3",
         {{"title", "T"}, {"artist", "Singer"}, {"album", "Al"}, {"track", "4"}, {"genre", "Folk"}});
    read();
    const auto item = library->songs()->at(0);
    const auto text = [&](const char* name) { return *item->valueForProperty(name).string(); };
    EXPECT_EQ(item->artist(), "Singer");
    EXPECT_EQ(text(media::MPMediaItemPropertyAlbumTitle), "Al");
    EXPECT_EQ(text(media::MPMediaItemPropertyGenre), "Folk");
    EXPECT_EQ(item->valueForProperty(media::MPMediaItemPropertyAlbumTrackNumber).integerValue(), 4);
    EXPECT_NEAR(item->valueForProperty(media::MPMediaItemPropertyPlaybackDuration).doubleValue(), 0.2, 0.1);
    EXPECT_EQ(text(media::MPMediaItemPropertyAssetURL), "file://" + music().string() + "/My%20Song%25.mp3");
    EXPECT_TRUE(item->valueForProperty(media::MPMediaItemPropertyComposer).isNil());
    EXPECT_FALSE(item->artwork());
    EXPECT_GT(item->persistentID(), 0);
    EXPECT_EQ(library->song(item->persistentID()), item);
}

TEST_F(IndexedMusicLibraryTest, BringsItsIndexUpToDate) {
    make("kept.flac", {{"title", "Kept"}});
    make("changed.flac", {{"title", "Before"}});
    make("removed.flac", {{"title", "Removed"}});
    read();
    const auto kept = library->songs()->at(1)->persistentID();
    EXPECT_THAT(titles(), ElementsAre("Before", "Kept", "Removed"));

    make("changed.flac", {{"title", "After, longer"}});
    make("added.flac", {{"title", "Added"}});
    std::filesystem::remove(music() / "removed.flac");
    restart();
    EXPECT_THAT(titles(), ElementsAre("Added", "After, longer", "Kept"));
    EXPECT_EQ(library->songs()->at(2)->persistentID(), kept);
}

TEST_F(IndexedMusicLibraryTest, TrustsItsIndexForUnchangedFiles) {
    make("song.flac", {{"title", "Song"}});
    read();
    const auto time = std::filesystem::last_write_time(music() / "song.flac");
    const auto size = std::filesystem::file_size(music() / "song.flac");
    std::ofstream(music() / "song.flac") << std::string(size, 'x');
    std::filesystem::last_write_time(music() / "song.flac", time);
    restart();
    EXPECT_THAT(titles(), ElementsAre("Song"));
}

TEST_F(IndexedMusicLibraryTest, SurvivesADamagedIndex) {
    make("song.flac", {{"title", "Song"}});
    read();
    ASSERT_TRUE(std::filesystem::exists(indexFile()));
    std::filesystem::resize_file(indexFile(), std::filesystem::file_size(indexFile()) - 3);
    restart();
    EXPECT_THAT(titles(), ElementsAre("Song"));
    std::filesystem::remove(indexFile());
    std::filesystem::create_directory(indexFile());
    restart();
    EXPECT_THAT(titles(), ElementsAre("Song"));
}

TEST_F(IndexedMusicLibraryTest, KeepsTheItemsOfUnchangedFiles) {
    make("a.flac", {{"title", "A"}});
    make("b.flac", {{"title", "B"}});
    read();
    const auto before = library->songs();
    make("b.flac", {{"title", "Other"}});
    read();
    const auto after = library->songs();
    ASSERT_EQ(after->size(), 2u);
    EXPECT_NE(before, after);
    EXPECT_EQ(before->at(0), after->at(0));
    EXPECT_NE(before->at(1), after->at(1));
}

TEST_F(IndexedMusicLibraryTest, RemembersWhatIsNoSong) {
    std::ofstream(music() / "garbage.mp3") << "";
    make("song.flac", {{"title", "Song"}});
    read();
    EXPECT_THAT(titles(), ElementsAre("Song"));
    const auto written = std::filesystem::last_write_time(indexFile());
    restart();
    EXPECT_THAT(titles(), ElementsAre("Song"));
    EXPECT_EQ(std::filesystem::last_write_time(indexFile()), written)
        << "nothing was read, so nothing is written";
}

TEST_F(IndexedMusicLibraryTest, TellsItsObservers) {
    make("song.flac", {{"title", "Song"}});
    std::vector<std::pair<bool, std::size_t>> told;
    const auto observer =
        library->addObserver([&] { told.emplace_back(library->isScanning(), library->songs()->size()); });
    library->addDirectory(music());
    EXPECT_TRUE(told.empty()) << "never from within a call";
    loop.advance(0.1);
    EXPECT_THAT(told, ElementsAre(std::pair(true, 0u), std::pair(true, 1u), std::pair(false, 1u)));
}

TEST_F(IndexedMusicLibraryTest, ReadsDirectoriesThatComeLater) {
    make("song.flac", {{"title", "Song"}});
    read();
    const auto other = directory.path() / "other";
    std::filesystem::create_directory(other);
    support::makeMusicFile(other / "o.flac", {.seconds = 0.2, .tags = {{"title", "Other"}}});
    library->addDirectory(other);
    library->addDirectory(other);
    loop.advance(0.1);
    EXPECT_THAT(titles(), ElementsAre("Other", "Song"));
    EXPECT_THAT(library->directories(), ElementsAre(music(), other));
}

TEST_F(IndexedMusicLibraryTest, FindsCoversAndWordsInTheFiles) {
    library->addDirectory(VELA_SOURCE_DIR "/resources/music/songs");
    loop.advance(0.1);
    ASSERT_EQ(library->songs()->size(), 7u);
    std::set<std::int64_t> identifiers;
    for (const auto& item : *library->songs()) {
        identifiers.insert(item->persistentID());
        EXPECT_TRUE(item->artwork());
        EXPECT_GT(library->artworkData(item->persistentID()).size(), 1000u);
    }
    EXPECT_EQ(identifiers.size(), 7u);
    EXPECT_TRUE(library->lyrics(library->songs()->at(0)->persistentID()));
}

/// With real threads.
class LibraryInTheBackground : public support::RealTimeTest {};

TEST_F(LibraryInTheBackground, ReadsWhileTheMainLoopGoesOn) {
    tests::TemporaryDirectory directory;
    foundation::FileManager::shared().setDeviceRoot(directory.path() / "device");
    const auto song = directory.path() / "music/0.flac";
    std::filesystem::create_directories(song.parent_path());
    support::makeMusicFile(song, {.seconds = 0.2, .tags = {{"title", "Song"}}});
    for (int copy = 1; copy < 1000; ++copy)
        std::filesystem::copy_file(song, song.parent_path() / (std::to_string(copy) + ".flac"));
    IndexedMusicLibrary library;
    std::vector<std::size_t> counts;
    const auto observer = library.addObserver([&] { counts.push_back(library.songs()->size()); });
    library.addDirectory(song.parent_path());
    ASSERT_TRUE(runUntil([&] { return !library.isScanning(); }));
    EXPECT_EQ(library.songs()->size(), 1000u);
    EXPECT_GT(counts.size(), 4u) << "songs are shown before all of them have been read";
    EXPECT_TRUE(std::is_sorted(counts.begin(), counts.end()));
}

TEST_F(LibraryInTheBackground, EndsInTheMiddleOfAScan) {
    tests::TemporaryDirectory directory;
    foundation::FileManager::shared().setDeviceRoot(directory.path() / "device");
    auto library = std::make_unique<IndexedMusicLibrary>();
    bool called = false;
    const auto observer = library->addObserver([&] { called = true; });
    library->addDirectory(VELA_SOURCE_DIR "/resources/music/songs");
    ASSERT_TRUE(runUntil([&] { return called; }));
    library.reset();
    called = false;
    runFor(0.3);
    EXPECT_FALSE(called);
}

} // namespace
} // namespace playback
