#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/PSEditableListController.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "tests/support/TestHost.h"
#include "vela/settings/PageState.h"
#include "vela/stores/Paths.h"

using preferences::PSEditableListController;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

struct ArtworkPages : tests::SettingsTest {
    ArtworkPages() { std::filesystem::create_directories(folder()); }
    std::filesystem::path folder() const { return root / (vela::paths::artworks + 1); }
    void artwork(const std::string& fileName, int size = 4) {
        const auto png = toolkit::encodePng(*tests::greyImage(100, size, size));
        write(std::string(vela::paths::artworks) + "/" + fileName, std::string(png.begin(), png.end()));
    }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            names.push_back(entry.path().filename());
        return names;
    }
    std::shared_ptr<PSEditableListController> list() {
        return shown<PSEditableListController>("artworksController", "Manage artworks");
    }
    void remove(PSEditableListController& page, const std::string& name) {
        page.performDeletionActionForSpecifier(page.specifierForID(name));
    }
    std::shared_ptr<toolkit::UIImageView> preview() {
        const auto cell = top()->cellForSpecifier(top()->specifiers().front());
        return std::dynamic_pointer_cast<toolkit::UIImageView>(cell->subviews().front());
    }
};

TEST_F(ArtworkPages, ListTheEntriesWithTheirPictures) {
    artwork("Song_Band.png");
    artwork("default_artwork.png");
    EXPECT_TRUE(tests::matchesReference("artworks", tests::dumpOf(*list())));
}

TEST_F(ArtworkPages, PicturesAreThoseOfTheScreensScale) {
    toolkit::UIScreen::mainScreen().setScale(2);
    artwork("Song_Band.png", 4);
    artwork("Song_Band@2x.png", 10);
    const auto page = list();
    EXPECT_THAT(page->specifiers(), SizeIs(2)); // one for each file
    EXPECT_EQ(page->specifierForID("Song_Band")->iconImage()->pixelWidth(), 10);
}

TEST_F(ArtworkPages, AFileThatIsNoPictureIsARowWithoutIcon) {
    write(std::string(vela::paths::artworks) + "/Broken_.png", "not a picture");
    const auto row = list()->specifierForID("Broken_");
    ASSERT_TRUE(row);
    EXPECT_FALSE(row->iconImage());
    tapRow("Broken_");
    EXPECT_FALSE(preview()->image());
}

TEST_F(ArtworkPages, AMissingFolderListsNothing) {
    std::filesystem::remove_all(folder());
    EXPECT_THAT(list()->specifiers(), IsEmpty());
}

TEST_F(ArtworkPages, DeletingARowDeletesTheFirstFileThatContainsItsName) {
    artwork("Song.png");
    artwork("Song_Band.png");
    const auto order = *foundation::FileManager::shared().contentsOfDirectory(vela::paths::artworks);
    remove(*list(), "Song");
    EXPECT_THAT(files(), UnorderedElementsAre(order.back()));
}

TEST_F(ArtworkPages, AnotherScaleThatStaysMakesTheEntryReappear) {
    artwork("Song_Band@2x.png");
    artwork("Song_Band@3x.png");
    const auto page = list();
    remove(*page, "Song_Band");
    EXPECT_THAT(files(), SizeIs(1));
    EXPECT_THAT(page->specifiers(), SizeIs(1));
    shown("guideController");
    navigation->popViewControllerAnimated(true);
    EXPECT_THAT(page->specifiers(), SizeIs(1));
    remove(*page, "Song_Band");
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(ArtworkPages, ThePreviewHasItsRow) {
    artwork("Song_Band.png");
    list();
    tapRow("Song_Band");
    EXPECT_TRUE(tests::matchesReference("artwork-preview", tests::dumpOf(*top())));
    EXPECT_EQ(vela::pageState().fileName, "/var/mobile/Documents/Vela/Artworks/Song_Band.png");
}

TEST_F(ArtworkPages, ThePreviewIsASquareAsWideAsThePage) {
    artwork("Song_Band.png", 7);
    list();
    tapRow("Song_Band");
    EXPECT_EQ(preview()->frame(), toolkit::Rect(0, 0, 375, 375));
    EXPECT_EQ(preview()->image()->pixelWidth(), 7);
    navigation->setContentSize({667, 375});
    EXPECT_EQ(preview()->frame(), toolkit::Rect(0, 0, 667, 667));
    EXPECT_EQ(preview()->superview()->frame().height, 667);
}

TEST_F(ArtworkPages, AnArtworkThatIsGoneIsAnEmptyPreview) {
    artwork("Song_Band.png");
    list();
    std::filesystem::remove(folder() / "Song_Band.png");
    tapRow("Song_Band");
    EXPECT_FALSE(preview()->image());
}

TEST_F(ArtworkPages, ThousandsAreListedWithoutReadingOne) {
    for (int i = 0; i < 3000; ++i)
        write(std::string(vela::paths::artworks) + "/Song " + std::to_string(i) + "_.png", "");
    const auto page = list();
    EXPECT_THAT(page->specifiers(), SizeIs(3000));
}

} // namespace
