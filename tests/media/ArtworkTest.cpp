#include "platform/media/CoverStore.h"
#include "platform/media/MPMediaItemArtwork.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestMediaPort.h"
#include "tests/support/ToolkitTest.h"

namespace {

using namespace media;
using toolkit::Size;

struct Artwork : support::ToolkitTest {
    Artwork() {
        CoverStore::shared().clear();
        port.covers[1] = toolkit::encodePng(*tests::greyImage(200, 400, 400));
    }
    ~Artwork() override { CoverStore::shared().clear(); }

    Size pixels(const MPMediaItemArtwork::Picture& picture) {
        return {static_cast<double>(picture->pixelWidth()), static_cast<double>(picture->pixelHeight())};
    }

    tests::TestMediaPort port;
};

TEST_F(Artwork, GivesAPictureAtHandAsItIs) {
    const auto picture = tests::greyImage(3);
    const MPMediaItemArtwork artwork(picture);
    EXPECT_EQ(artwork.imageWithSize({50, 50}), picture);
    MPMediaItemArtwork::Picture loaded;
    const auto handle = artwork.loadImage({50, 50}, [&](const auto& image) { loaded = image; });
    EXPECT_EQ(loaded, picture);
}

TEST_F(Artwork, ReducesALibrarysCoverToThePixelsThatAreAskedFor) {
    const auto picture = MPMediaItemArtwork(1).imageWithSize({44, 44});
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(pixels(picture), Size(88, 88));
    EXPECT_EQ(picture->size(), Size(44, 44));
}

TEST_F(Artwork, NeverEnlargesACover) {
    EXPECT_EQ(pixels(MPMediaItemArtwork(1).imageWithSize({1000, 1000})), Size(400, 400));
}

TEST_F(Artwork, KeepsTheShapeOfACoverThatIsNotSquare) {
    port.covers[2] = toolkit::encodePng(*tests::greyImage(9, 400, 200));
    EXPECT_EQ(pixels(MPMediaItemArtwork(2).imageWithSize({50, 50})), Size(200, 100));
}

TEST_F(Artwork, ReadsACoverOnceForEachSize) {
    const MPMediaItemArtwork artwork(1);
    EXPECT_EQ(artwork.imageWithSize({44, 44}), artwork.imageWithSize({44, 44}));
    EXPECT_EQ(port.coversRead, 1);
    artwork.imageWithSize({60, 60});
    EXPECT_EQ(port.coversRead, 2);
}

TEST_F(Artwork, IsNothingForBytesThatAreNoPicture) {
    port.covers[3] = {'n', 'o'};
    port.covers[4] = toolkit::encodePng(*tests::greyImage(1, 40, 40));
    port.covers[4].resize(port.covers[4].size() / 2);
    for (const std::int64_t identifier : {3, 4, 5}) {
        EXPECT_EQ(MPMediaItemArtwork(identifier).imageWithSize({44, 44}), nullptr) << identifier;
        bool called = false;
        const auto handle = MPMediaItemArtwork(identifier).loadImage({44, 44}, [&](const auto& picture) {
            called = true;
            EXPECT_EQ(picture, nullptr);
        });
        EXPECT_TRUE(called);
    }
}

TEST_F(Artwork, SurvivesSizesThatAreNone) {
    for (const Size size : {Size{0, 0}, Size{-5, 10}, Size{1e12, 1e12}})
        EXPECT_NE(MPMediaItemArtwork(1).imageWithSize(size), nullptr);
}

TEST_F(Artwork, LoadsInTheBackgroundAndTellsOnce) {
    int calls = 0;
    const auto handle = MPMediaItemArtwork(1).loadImage({44, 44}, [&](const auto& picture) {
        ++calls;
        EXPECT_NE(picture, nullptr);
    });
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(port.coversRead, 0);
    loop.advance(0.1);
    EXPECT_EQ(calls, 1);
}

TEST_F(Artwork, ReadsACoverOnceForAllWhoWaitForIt) {
    int calls = 0;
    const auto first = MPMediaItemArtwork(1).loadImage({44, 44}, [&](const auto&) { ++calls; });
    const auto second = MPMediaItemArtwork(1).loadImage({44, 44}, [&](const auto&) { ++calls; });
    loop.advance(0.1);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(port.coversRead, 1);
}

TEST_F(Artwork, DoesNotTellThoseWhoNoLongerWait) {
    int calls = 0;
    {
        const auto handle = MPMediaItemArtwork(1).loadImage({44, 44}, [&](const auto&) { ++calls; });
    }
    loop.advance(0.1);
    EXPECT_EQ(calls, 0);
}

TEST_F(Artwork, ForgetsTheCoversThatWereUsedLongestAgo) {
    const auto large = toolkit::encodePng(*tests::greyImage(7, 2000, 2000));
    constexpr int fitting = static_cast<int>(CoverStore::capacity / (2000 * 2000));
    for (int i = 0; i <= fitting; ++i) {
        port.covers[100 + i] = large;
        MPMediaItemArtwork(100 + i).imageWithSize({1000, 1000});
    }
    port.coversRead = 0;
    MPMediaItemArtwork(100 + fitting).imageWithSize({1000, 1000});
    EXPECT_EQ(port.coversRead, 0);
    MPMediaItemArtwork(100).imageWithSize({1000, 1000});
    EXPECT_EQ(port.coversRead, 1);
}

TEST_F(Artwork, KeepsOnlyWhatIsShownWhenTheRestIsForgotten) {
    const auto shown = MPMediaItemArtwork(1).imageWithSize({44, 44});
    MPMediaItemArtwork(1).imageWithSize({60, 60});
    MPMediaItemArtwork(404).imageWithSize({44, 44});
    CoverStore::shared().forgetUnused();
    port.coversRead = 0;
    EXPECT_EQ(MPMediaItemArtwork(1).imageWithSize({44, 44}), shown);
    EXPECT_EQ(MPMediaItemArtwork(404).imageWithSize({44, 44}), nullptr);
    EXPECT_EQ(port.coversRead, 0);
    EXPECT_NE(MPMediaItemArtwork(1).imageWithSize({60, 60}), nullptr);
    EXPECT_EQ(port.coversRead, 1);
}

TEST_F(Artwork, ReadsAgainWhatWasForgotten) {
    MPMediaItemArtwork(1).imageWithSize({44, 44});
    CoverStore::shared().clear();
    port.covers[1] = toolkit::encodePng(*tests::greyImage(200, 20, 20));
    EXPECT_EQ(pixels(MPMediaItemArtwork(1).imageWithSize({44, 44})), Size(20, 20));
}

} // namespace
