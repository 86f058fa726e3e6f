#include "tests/vela/nowplaying/NowPlayingTest.h"
#include "vela/nowplaying/velaItemsManager.h"

#include <limits>

using foundation::PropertyList;
using testing::ElementsAre;

namespace {

struct ItemsManager : tests::NowPlayingTest {
    std::vector<std::string> related(const std::string& key,
                                     const std::shared_ptr<media::MPMediaItem>& first) {
        std::vector<std::string> titles;
        for (const auto& song : items.getAllSongsWithKey(key, first))
            titles.push_back(*song->storedProperty(media::MPMediaItemPropertyTitle)->string());
        return titles;
    }
    vela::velaItemsManager& items = vela::velaItemsManager::sharedInstance();
};

TEST_F(ItemsManager, ThereIsOne) {
    EXPECT_EQ(&vela::velaItemsManager::sharedInstance(), &items);
}

TEST_F(ItemsManager, AnEmptyLibraryHasNoSongs) {
    EXPECT_TRUE(items.getAllSongs()->empty());
    EXPECT_EQ(items.getMediaItemByIdentifier(1), nullptr);
}

TEST_F(ItemsManager, FindsASongByWhatItsIdentifierIsWrittenLike) {
    for (int song = 1; song <= 12; ++song)
        library.add("Song " + std::to_string(song), "Band", "Album");
    const auto twelfth = library.songs()->back();
    EXPECT_EQ(items.getMediaItemByIdentifier(12), twelfth);
    EXPECT_EQ(items.getMediaItemByIdentifier("12"), twelfth);
    EXPECT_EQ(items.getMediaItemByIdentifier(12.0), twelfth);
    EXPECT_EQ(items.getMediaItemByIdentifier(12.5), nullptr);
    EXPECT_EQ(items.getMediaItemByIdentifier(1e300), nullptr);
    EXPECT_EQ(items.getMediaItemByIdentifier(std::numeric_limits<double>::quiet_NaN()), nullptr);
    for (const char* text : {"012", " 12", "12 ", "12.0", "+12", "", "twelve", "99999999999999999999"})
        EXPECT_EQ(items.getMediaItemByIdentifier(text), nullptr) << text;
    EXPECT_EQ(items.getMediaItemByIdentifier({}), nullptr);
    EXPECT_EQ(items.getMediaItemByIdentifier(PropertyList::Array{12}), nullptr);
}

TEST_F(ItemsManager, RelatedSongsComeBehindTheFirstInTheLibrarysOrder) {
    library.add("One", "Band", "Album");
    const auto two = library.add("Two", "Band", "Other");
    library.add("Three", "band", "Album");
    library.add("Four", "Band", "Album");
    EXPECT_THAT(related("Band", two), ElementsAre("Two", "One", "Four")) << "to the letter";
    preference(vela::keys::loadSongsWith, "album");
    EXPECT_THAT(related("Album", two), ElementsAre("Two", "One", "Three", "Four"));
    preference(vela::keys::loadSongsWith, "queue");
    EXPECT_THAT(related("Band", two), ElementsAre("Two", "One", "Four")) << "which means the artist";
    preference(vela::keys::loadSongsWith, {});
    EXPECT_THAT(related("Band", two), ElementsAre("Two", "One", "Four")) << "any other choice too";
}

TEST_F(ItemsManager, ASongWithoutTheWordIsNeverRelated) {
    const auto one = library.add("One", std::nullopt, std::nullopt);
    library.add("Two", std::nullopt, std::nullopt);
    library.add("Three", "", "");
    EXPECT_THAT(related("", one), ElementsAre("One", "Three"));
    preference(vela::keys::loadSongsWith, "album");
    EXPECT_THAT(related("", one), ElementsAre("One", "Three"));
}

TEST_F(ItemsManager, TheFirstSongIsNotItsOwnNeighbour) {
    const auto one = library.add("One", "Band", "Album");
    // The library has been read again since: another object for the same song.
    const media::MPMediaItem::Cover cover = media::MPMediaItem::Cover::None;
    const std::map<std::string, PropertyList> properties{{media::MPMediaItemPropertyPersistentID, 1},
                                                         {media::MPMediaItemPropertyTitle, "One"},
                                                         {media::MPMediaItemPropertyArtist, "Band"}};
    EXPECT_THAT(related("Band", std::make_shared<media::MPMediaItem>(properties, cover)), ElementsAre("One"));
    EXPECT_THAT(related("Band", one), ElementsAre("One"));
}

} // namespace
