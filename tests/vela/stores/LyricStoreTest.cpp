#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/media/MPMediaItem.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

#include <fstream>

#include <sys/stat.h>

using foundation::FileManager;
using foundation::PropertyList;
using media::MPMediaItem;
using vela::VelaSettingsManager;

namespace {

struct LyricStore : tests::ProductTest {
    VelaSettingsManager& store = VelaSettingsManager::sharedInstance();

    LyricStore() { FileManager::shared().createDirectories(vela::paths::data); }

    std::filesystem::path file() const { return root / (vela::paths::lyrics + 1); }
    static std::shared_ptr<MPMediaItem> song(PropertyList title, PropertyList artist) {
        std::map<std::string, PropertyList> properties;
        if (!title.isNil())
            properties[media::MPMediaItemPropertyTitle] = title;
        if (!artist.isNil())
            properties[media::MPMediaItemPropertyArtist] = artist;
        return std::make_shared<MPMediaItem>(properties);
    }
    PropertyList::Dictionary all() const { return store.getLyrics().value_or(PropertyList::Dictionary()); }
};

TEST_F(LyricStore, KeepsALyricUnderTitleAndArtist) {
    store.addLyric("la\nla", "Song", "Band");
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), "la\nla");
    EXPECT_EQ(all(), (PropertyList::Dictionary{{"Song_Band", "la\nla"}}));
    EXPECT_EQ(store.getLyricForSongName("Band", "Song"), std::nullopt);
    EXPECT_EQ(store.getLyricForSongName("song", "Band"), std::nullopt);
}

TEST_F(LyricStore, RemembersThatASongHasNoLyric) {
    store.addLyric("", "Song", "Band");
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), "No lyric");
}

TEST_F(LyricStore, KeepsAnEmptyLyricOfALibrarySongEmpty) {
    store.addLyric("", song("Song", "Band"));
    EXPECT_EQ(store.getLyricForSong(song("Song", "Band")), "");
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), "");
}

TEST_F(LyricStore, FindsASongWithoutArtistUnderItsTitleAndAnUnderscore) {
    store.addLyric("text", "Song", "");
    EXPECT_EQ(all(), (PropertyList::Dictionary{{"Song_", "text"}}));
    EXPECT_EQ(store.getLyricForSongName("Song", ""), "text");
    EXPECT_EQ(store.getLyricForSong(song("Song", {})), "text");
    EXPECT_EQ(store.getLyricForSong(song("Song", "")), "text");
}

TEST_F(LyricStore, FindsASongWithoutAnythingUnderAnUnderscore) {
    store.addLyric("text", song({}, {}));
    EXPECT_EQ(all(), (PropertyList::Dictionary{{"_", "text"}}));
}

TEST_F(LyricStore, RewritesTheFileUnchangedWhenNothingIsRemoved) {
    store.addLyric("a", "One", "Band");
    store.addLyric("b", "Two", "Band");
    const auto before = all();
    struct stat old {
    }, now{};
    ASSERT_EQ(stat(file().c_str(), &old), 0);
    store.removeLyric("Three_Band");
    ASSERT_EQ(stat(file().c_str(), &now), 0);
    EXPECT_EQ(all(), before);
    EXPECT_NE(old.st_ino, now.st_ino); // written anew
}

TEST_F(LyricStore, RemovesAnEntry) {
    store.addLyric("a", "One", "Band");
    store.addLyric("b", "Two", "Band");
    store.removeLyric("One_Band");
    EXPECT_EQ(all(), (PropertyList::Dictionary{{"Two_Band", "b"}}));
}

TEST_F(LyricStore, LetsSongsOfOneKeyOverwriteEachOther) {
    store.addLyric("first", "Night_Song", "Mo");
    store.addLyric("second", "Night", "Song_Mo");
    EXPECT_EQ(store.getLyricForSongName("Night_Song", "Mo"), "second");
    EXPECT_EQ(all().size(), 1u);
}

TEST_F(LyricStore, StoresUnderAReadyMadeKeyWhateverItIsGiven) {
    store.addLyric("", "any key at all");
    EXPECT_EQ(store.getLyricForSongTitle("any key at all"), "");
    store.addLyric("text", "any key at all");
    EXPECT_EQ(store.getLyricForSongTitle("any key at all"), "text");
    EXPECT_EQ(store.getLyricForSongTitle("another"), std::nullopt);
}

TEST_F(LyricStore, DoesNothingWithoutAnItem) {
    store.addLyric("text", std::shared_ptr<MPMediaItem>());
    EXPECT_FALSE(std::filesystem::exists(file()));
    EXPECT_EQ(store.getLyricForSong(nullptr), "");
}

TEST_F(LyricStore, AnswersNothingWithoutAFile) {
    EXPECT_EQ(store.getLyrics(), std::nullopt);
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), std::nullopt);
    EXPECT_EQ(store.getLyricForSongTitle("Song_Band"), std::nullopt);
    EXPECT_EQ(store.getLyricForSong(song("Song", "Band")), std::nullopt);
}

TEST_F(LyricStore, ReplacesACorruptFile) {
    for (const std::string& bytes : {std::string("garbage"), std::string("bplist00garbage"), std::string(),
                                     std::string("<plist><array/></plist>"), std::string(1000, '\0')}) {
        std::ofstream(file(), std::ios::binary | std::ios::trunc) << bytes;
        EXPECT_EQ(store.getLyrics(), std::nullopt);
        EXPECT_EQ(store.getLyricForSongName("Song", "Band"), std::nullopt);
        store.addLyric("text", "Song", "Band");
        EXPECT_EQ(all(), (PropertyList::Dictionary{{"Song_Band", "text"}}));
    }
}

TEST_F(LyricStore, TakesNothingButATextForALyric) {
    FileManager::shared().writeDictionaryAtomically(vela::paths::lyrics, {{"a_b", 7}, {"c_d", true}});
    EXPECT_EQ(store.getLyricForSongName("a", "b"), std::nullopt);
    EXPECT_EQ(store.getLyricForSongTitle("c_d"), std::nullopt);
    EXPECT_EQ(store.getLyrics()->size(), 2u);
}

TEST_F(LyricStore, NeverMakesItsFolder) {
    std::filesystem::remove_all(root / (vela::paths::data + 1));
    store.addLyric("text", "Song", "Band");
    store.removeLyric("Song_Band");
    EXPECT_FALSE(std::filesystem::exists(root / (vela::paths::data + 1)));
}

TEST_F(LyricStore, KeepsEveryLine) {
    const std::string text = "a\n\n  b\tc\r\n\"d\" & <e> 'é' \xF0\x9F\x8E\xB5\n";
    store.addLyric(text, "Song", "Band");
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), text);
}

TEST_F(LyricStore, TakesAnyKey) {
    const std::vector<std::string> titles{"/", "..", "../../../etc/passwd", "a\nb", std::string(10'000, 'x')};
    for (const std::string& title : titles)
        store.addLyric("text of " + title.substr(0, 10), title, "Band");
    for (const std::string& title : titles)
        EXPECT_EQ(store.getLyricForSongName(title, "Band"), "text of " + title.substr(0, 10));
    EXPECT_EQ(all().size(), titles.size());
}

TEST_F(LyricStore, SeesWhatAnotherProcessWrote) {
    store.addLyric("old", "Song", "Band");
    FileManager::shared().writeDictionaryAtomically(vela::paths::lyrics, {{"Song_Band", "new"}});
    EXPECT_EQ(store.getLyricForSongName("Song", "Band"), "new");
}

} // namespace
