#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/toolkit/rendering/Image.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "vela/stores/Paths.h"
#include "vela/stores/VelaSettingsManager.h"

#include <gmock/gmock.h>

#include <fstream>

using foundation::FileManager;
using testing::ElementsAre;
using testing::UnorderedElementsAre;
using toolkit::Image;
using vela::VelaSettingsManager;

namespace {

struct ArtworkStore : tests::ProductTest {
    VelaSettingsManager& store = VelaSettingsManager::sharedInstance();

    ArtworkStore() { FileManager::shared().createDirectories(vela::paths::artworks); }

    std::filesystem::path folder() const { return root / (vela::paths::artworks + 1); }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            names.push_back(entry.path().filename());
        return names;
    }
    void touch(const std::string& name, const std::string& content = "") const {
        std::ofstream(folder() / name, std::ios::binary) << content;
    }
    static void scale(double scale) { toolkit::UIScreen::mainScreen().setScale(scale); }
    /// A picture of `side` × `side` pixels.
    static std::shared_ptr<const Image> picture(int side) {
        const auto count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 4;
        return std::make_shared<const Image>(side, side, side * 4, std::vector<std::uint8_t>(count, 200), 1);
    }
    /// Everything on the device's disk, with paths from the root.
    std::vector<std::string> disk() const {
        std::vector<std::string> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (entry.is_regular_file())
                paths.push_back(std::filesystem::relative(entry.path(), root));
        return paths;
    }
};

TEST_F(ArtworkStore, SavesUnderANameThatSaysTheScaleAndFindsItAgain) {
    scale(2);
    store.addArtWork(picture(6), "Song", "Band");
    EXPECT_THAT(files(), ElementsAre("Song_Band@2x.png"));
    const auto found = store.getImageForSongName("Song", "Band");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->pixelWidth(), 6);
    EXPECT_EQ(found->scale(), 2);
}

TEST_F(ArtworkStore, NamesTheScaleOnlyAboveOne) {
    const std::pair<double, const char*> cases[] = {
        {1, "Song_Band.png"}, {0.5, "Song_Band.png"}, {3, "Song_Band@3x.png"}, {2.9, "Song_Band@2x.png"}};
    for (const auto& [pixels, name] : cases) {
        scale(pixels);
        store.addArtWork(picture(4), "Song", "Band");
        EXPECT_THAT(files(), ElementsAre(name));
        std::filesystem::remove(folder() / name);
    }
}

TEST_F(ArtworkStore, ListsAnEntryOnceWithoutItsScale) {
    scale(2);
    store.addArtWork(picture(4), "Song", "Band");
    EXPECT_THAT(store.getArtworks(), ElementsAre("Song_Band"));
}

TEST_F(ArtworkStore, ListsAnEntryOfTwoScalesTwice) {
    touch("Song_Band@2x.png");
    touch("Song_Band@3x.png");
    EXPECT_THAT(store.getArtworks(), ElementsAre("Song_Band", "Song_Band"));
}

TEST_F(ArtworkStore, ListsPicturesButNotTheDefaultOne) {
    for (const char* name : {"a_b.png", "default_artwork.png", "default_artwork@2x.png", "c_d.jpg", "e_f",
                             "default_artwork_x.png", "g@2x.png_h.png"})
        touch(name);
    EXPECT_THAT(store.getArtworks(), UnorderedElementsAre("a_b", "default_artwork_x", "g_h"));
}

TEST_F(ArtworkStore, RemovesTheFirstFileWhoseNameContainsTheText) {
    touch("Other Song_Band.png");
    touch("Song_Band.png");
    const std::string first = files().front();
    store.removeArtwork("Song");
    const auto left = files();
    EXPECT_EQ(left.size(), 1u);
    EXPECT_NE(left.front(), first);
}

TEST_F(ArtworkStore, RemovesOneFileOfSeveralScales) {
    touch("Song_Band@2x.png");
    touch("Song_Band@3x.png");
    store.removeArtwork("Song_Band");
    EXPECT_EQ(files().size(), 1u);
}

TEST_F(ArtworkStore, RemovesNothingForATextThatNoNameContains) {
    touch("Song_Band.png");
    for (const char* text : {"Songs", "", "../Song", "/"})
        store.removeArtwork(text);
    EXPECT_EQ(files().size(), 1u);
}

TEST_F(ArtworkStore, StoresASongWithoutArtistUnderItsTitleAndAnUnderscore) {
    scale(2);
    store.addArtWork(picture(4), "Song", "");
    EXPECT_THAT(files(), ElementsAre("Song_@2x.png"));
    EXPECT_TRUE(store.getImageForSongName("Song", ""));
}

TEST_F(ArtworkStore, StoresNothingWithoutAPicture) {
    store.addArtWork(nullptr, "Song", "Band");
    EXPECT_TRUE(files().empty());
}

TEST_F(ArtworkStore, FindsThePlainNameWhenThereIsNoneOfTheScale) {
    store.addArtWork(picture(4), "Song", "Band");
    scale(3);
    const auto found = store.getImageForSongName("Song", "Band");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->scale(), 1);
}

TEST_F(ArtworkStore, PrefersTheNameOfTheScale) {
    store.addArtWork(picture(4), "Song", "Band");
    scale(2);
    store.addArtWork(picture(8), "Song", "Band");
    EXPECT_EQ(store.getImageForSongName("Song", "Band")->pixelWidth(), 8);
}

TEST_F(ArtworkStore, FindsNothingInADamagedFile) {
    touch("Song_Band.png", "no picture");
    EXPECT_FALSE(store.getImageForSongName("Song", "Band"));
    EXPECT_FALSE(store.getImageForSongName("Other", "Band"));
}

TEST_F(ArtworkStore, DoesWithoutItsFolder) {
    std::filesystem::remove(folder());
    store.addArtWork(picture(4), "Song", "Band");
    store.removeArtwork("Song");
    EXPECT_TRUE(store.getArtworks().empty());
    EXPECT_FALSE(std::filesystem::exists(folder()));
}

TEST_F(ArtworkStore, NamesThatCannotBeAFileFailSilently) {
    const auto before = disk();
    for (const std::string& title :
         {std::string("/"), std::string("../x"), std::string("../../../../../tmp/x"), std::string("a/b"),
          std::string("/etc/x"), std::string("a\0b", 3), std::string(10'000, 'x'),
          std::string("a/../../x")}) {
        store.addArtWork(picture(4), title, "Band");
        EXPECT_FALSE(store.getImageForSongName(title, "Band")) << title;
    }
    EXPECT_EQ(disk(), before);
}

TEST_F(ArtworkStore, TakesNamesOfAnySmallKind) {
    for (const std::string title : {"a\nb", "..", "dots.and.more", "é", "@2x", "-", " "}) {
        store.addArtWork(picture(4), title, "Band");
        EXPECT_TRUE(store.getImageForSongName(title, "Band")) << title;
    }
}

TEST_F(ArtworkStore, FollowsNoLinkOutOfTheFolder) {
    const auto outside = root / "outside.png";
    std::filesystem::create_symlink(outside, folder() / "Song_Band.png");
    std::filesystem::create_directory_symlink(root, folder() / "way");
    store.addArtWork(picture(4), "Song", "Band");
    store.addArtWork(picture(4), "way/x", "Band");
    EXPECT_FALSE(std::filesystem::exists(outside));
    EXPECT_FALSE(std::filesystem::exists(root / "x_Band.png"));
}

} // namespace
