#include "platform/toolkit/rendering/Image.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "platform/toolkit/windows/UIScreen.h"
#include "tests/vela/support/WebTest.h"

#include <gmock/gmock.h>

using foundation::FileManager;
using foundation::PropertyList;
using testing::ElementsAre;
using toolkit::Image;

namespace {

using Targets = std::vector<std::string>;

constexpr int coverSide = 500, defaultSide = 40;

struct ArtworkDownload : tests::WebTest {
    /// The side in pixels of each picture that was handed over, 0 for none.
    std::vector<int> ends;

    ArtworkDownload() {
        const auto bytes = picture(defaultSide);
        FileManager::shared().writeAtomically(vela::paths::defaultArtwork, {byteAt(bytes), bytes.size()});
    }

    static const std::uint8_t* byteAt(const std::string& bytes) {
        return reinterpret_cast<const std::uint8_t*>(bytes.data());
    }
    /// A picture file of `side` × `side` pixels.
    static std::string picture(int side) {
        const auto count = static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 4;
        const auto png =
            toolkit::encodePng(Image(side, side, side * 4, std::vector<std::uint8_t>(count, 255), 1));
        return {png.begin(), png.end()};
    }

    std::vector<int> get(const std::string& title = "Song", const std::string& artist = "Band") {
        ends.clear();
        web.getArtworkForSongName(title, artist, [this](const std::shared_ptr<const Image>& image) {
            ends.push_back(image ? image->pixelWidth() : 0);
        });
        wait(0.1);
        return ends;
    }
    int stored(const std::string& title = "Song", const std::string& artist = "Band") const {
        const auto image = store.getImageForSongName(title, artist);
        return image ? image->pixelWidth() : 0;
    }
    /// A catalogue that answers a search so, and serves `cover` everywhere else.
    void serveCatalogue(std::function<std::string(const std::string& address)> answer,
                        std::string cover = picture(coverSide), int coverStatus = 200) {
        serve([=, this](const Request& request, Connection& connection) {
            if (request.target.starts_with("/search?"))
                connection.answer(200, "text/javascript; charset=utf-8", answer(server->address()));
            else
                connection.answer(coverStatus, "image/png", cover);
        });
    }
    void serveResults(const std::string& count) {
        serveCatalogue([=](const std::string& address) { return results(count, address); });
    }
    static std::string results(const std::string& count, const std::string& address) {
        return "\n\n\n{\n \"resultCount\":" + count +
               ",\n \"results\": [\n{\"wrapperType\":\"track\", \"kind\":\"song\", \"artistName\":\"Band\", "
               "\"trackName\":\"Song\", \"artworkUrl30\":\"" +
               address + "/image/30x30bb.jpg\", \"artworkUrl100\":\"" + address +
               "/image/100x100bb.jpg\", \"trackExplicitness\":\"notExplicit\"}]\n}\n\n\n";
    }
    Targets targets() const { return server->targets(); }
};

TEST_F(ArtworkDownload, FindsTheCoverOfASong) {
    serveResults("1");
    EXPECT_THAT(get(), ElementsAre(coverSide));
    EXPECT_EQ(stored(), coverSide);
    EXPECT_THAT(targets(), ElementsAre("/search?term=Song+Band&limit=1&entity=song", "/image/500x500bb.jpg"));
    EXPECT_EQ(server->requests().at(0).headers.at("accept"), "application/json");
}

TEST_F(ArtworkDownload, StoresTheCoverBeforeItHandsItOver) {
    for (const char* count : {"1", "0"}) {
        serveResults(count);
        store.removeArtwork("Song");
        std::vector<int> storedWhenHandedOver;
        web.getArtworkForSongName("Song", "Band",
                                  [&](const auto&) { storedWhenHandedOver.push_back(stored()); });
        wait(0.1);
        EXPECT_THAT(storedWhenHandedOver, ElementsAre(stored())) << count;
        EXPECT_GT(stored(), 0);
    }
}

TEST_F(ArtworkDownload, EncodesSpacesAndJoinsTheWordsByAPlus) {
    serveResults("0");
    get("A Song", "The Band");
    EXPECT_THAT(targets(), ElementsAre("/search?term=A%20Song+The%20Band&limit=1&entity=song"));
}

TEST_F(ArtworkDownload, DoesNotAskForWhatIsStored) {
    serveResults("1");
    get();
    const auto before = targets().size();
    EXPECT_THAT(get(), ElementsAre(coverSide));
    EXPECT_EQ(targets().size(), before);
}

TEST_F(ArtworkDownload, TakesTwoResultsForAFailure) {
    for (const char* count : {"2", "0", "-1", "11", "null", "[]", "{}", "\"two\"", "false", "0.9"}) {
        serveResults(count);
        store.removeArtwork("Song");
        EXPECT_THAT(get(), ElementsAre(defaultSide)) << count;
        EXPECT_EQ(stored(), defaultSide) << count;
    }
}

TEST_F(ArtworkDownload, ReadsTheCountAsAWholeNumber) {
    for (const char* count : {"1", "\"1\"", "1.9", "true"}) {
        serveResults(count);
        store.removeArtwork("Song");
        EXPECT_THAT(get(), ElementsAre(coverSide)) << count;
    }
}

TEST_F(ArtworkDownload, RemembersTheDefaultPictureAfterAFailedSearch) {
    serveResults("0");
    get();
    EXPECT_EQ(targets().size(), 1u);
    EXPECT_THAT(get(), ElementsAre(defaultSide));
    EXPECT_EQ(targets().size(), 1u);
}

TEST_F(ArtworkDownload, EndsWithTheDefaultPictureWhateverTheCatalogueSays) {
    const std::string deep(100'000, '[');
    for (const std::string& body :
         {std::string(), std::string("no JSON"), std::string("[]"), std::string("1"), std::string("null"),
          std::string("\"resultCount\""), deep, std::string("{\"resultCount\":1"), std::string("\xFF\xFE"),
          std::string(2'000'000, ' ')}) {
        serveCatalogue([=](const std::string&) { return body; });
        store.removeArtwork("Song");
        EXPECT_THAT(get(), ElementsAre(defaultSide)) << body.substr(0, 30);
        EXPECT_EQ(stored(), defaultSide);
    }
}

TEST_F(ArtworkDownload, EndsWithTheDefaultPictureWhenTheSearchFails) {
    configure(deadAddress());
    EXPECT_THAT(get(), ElementsAre(defaultSide));
    serve([this](const Request&, Connection& connection) {
        connection.answer(503, "application/json", results("1", server->address()));
    });
    store.removeArtwork("Song");
    EXPECT_THAT(get(), ElementsAre(defaultSide));
    EXPECT_EQ(stored(), defaultSide);
}

TEST_F(ArtworkDownload, IsSilentAboutAResultWithoutCover) {
    for (const char* rest : {"[{}]", "[{\"artworkUrl100\":7}]", "[{\"artworkUrl100\":null}]",
                             "[{\"artworkUrl100\":\"\"}]", "[]", "[7]", "{}", "null"}) {
        serveCatalogue(
            [=](const std::string&) { return std::string("{\"resultCount\":1,\"results\":") + rest + "}"; });
        EXPECT_THAT(get(), ElementsAre()) << rest;
        EXPECT_EQ(stored(), 0);
        EXPECT_EQ(targets().size(), 1u);
    }
}

TEST_F(ArtworkDownload, EndsWithTheDefaultPictureWhenTheCoverCannotBeLoaded) {
    for (const std::string& address :
         {deadAddress(), std::string("file:///etc/hostname"), std::string("x y")}) {
        serveCatalogue([=](const std::string&) { return results("1", address); });
        store.removeArtwork("Song");
        EXPECT_THAT(get(), ElementsAre(defaultSide)) << address;
        EXPECT_EQ(stored(), defaultSide);
    }
}

TEST_F(ArtworkDownload, EndsWithoutPictureWhenTheCoverIsNone) {
    const std::string whole = picture(coverSide);
    std::string bomb = picture(4);
    // The header claims 60,000 × 60,000 pixels.
    for (const std::size_t at : {std::size_t{16}, std::size_t{20}})
        bomb.replace(at, 4, std::string("\x00\x00\xEA\x60", 4));
    for (const std::string& cover :
         {std::string("no picture"), std::string(), whole.substr(0, whole.size() / 2), bomb}) {
        serveCatalogue([](const std::string& address) { return results("1", address); }, cover);
        EXPECT_THAT(get(), ElementsAre(0));
        EXPECT_EQ(stored(), 0);
    }
}

TEST_F(ArtworkDownload, TakesAnErrorPageForNoPicture) {
    serveCatalogue([](const std::string& address) { return results("1", address); }, "not found", 404);
    EXPECT_THAT(get(), ElementsAre(0));
    EXPECT_EQ(stored(), 0);
}

TEST_F(ArtworkDownload, HasNoPictureWhenTheDefaultOneIsMissing) {
    serveResults("0");
    EXPECT_THAT(get("Another"), ElementsAre(defaultSide));
    FileManager::shared().removeFile(vela::paths::defaultArtwork);
    EXPECT_THAT(get(), ElementsAre(0)) << "it is read afresh for each song";
    EXPECT_EQ(stored(), 0);
}

TEST_F(ArtworkDownload, LeavesNoDownloadBehind) {
    serveResults("1");
    get();
    EXPECT_THAT(FileManager::shared().contentsOfDirectory("/var/mobile/tmp"),
                testing::Optional(ElementsAre()));
}

TEST_F(ArtworkDownload, StoresUnderTheScreensScale) {
    toolkit::UIScreen::mainScreen().setScale(2);
    serveResults("1");
    get();
    EXPECT_TRUE(FileManager::shared().fileExists(std::string(vela::paths::artworks) + "/Song_Band@2x.png"));
    EXPECT_EQ(stored(), coverSide);
}

TEST_F(ArtworkDownload, WorksForNamesThatCannotBeStored) {
    serveResults("1");
    for (const std::string& title : {std::string("../../x"), std::string("/"), std::string(10'000, 'x'),
                                     std::string("a\0b", 3), std::string("a\nb")})
        EXPECT_THAT(get(title, "Band"), ElementsAre(coverSide)) << title;
}

TEST_F(ArtworkDownload, DownloadsNothingWithoutAnAddress) {
    bool called = false;
    for (const PropertyList& address : {PropertyList(), PropertyList(""), PropertyList(7)})
        web.getFileFromUrl(address, [&](const std::string&, const auto&, const auto&) { called = true; });
    wait(0.1);
    EXPECT_FALSE(called);
}

TEST_F(ArtworkDownload, SharesNoPictureBetweenTwoLookUps) {
    serve([this](const Request& request, Connection& connection) {
        if (request.target.starts_with("/search?term=One"))
            connection.answer(200, "text/javascript", results("1", server->address()));
        else if (request.target.starts_with("/search?"))
            connection.answer(200, "text/javascript", results("0", server->address()));
        else
            connection.answer(200, "image/png", picture(coverSide));
    });
    std::vector<std::string> order;
    for (const char* title : {"One", "Two"})
        web.getArtworkForSongName(title, "Band", [&order, title](const std::shared_ptr<const Image>& image) {
            order.push_back(title + std::to_string(image->pixelWidth()));
        });
    wait(0.1);
    EXPECT_THAT(order, ElementsAre("Two40", "One500"));
}

} // namespace
