#include "platform/media/MPMediaItem.h"
#include "tests/vela/support/WebTest.h"

using foundation::PropertyList;
using media::MPMediaItem;
using tests::LocalHttpServer;
using vela::LyricResult;

namespace {

using Ends = std::vector<std::pair<LyricResult, std::string>>;
using Targets = std::vector<std::string>;

struct LyricDownload : tests::WebTest {
    Ends ends;

    vela::velaWebManager::LyricCompletion keepEnd() {
        return [this](LyricResult result, const std::string& text) { ends.emplace_back(result, text); };
    }
    void ask(const std::string& title, const std::string& artist) {
        web.getLyricTextForSongName(title, artist, keepEnd());
    }
    /// What comes of one request.
    Ends get(const std::string& title, const std::string& artist) {
        ends.clear();
        ask(title, artist);
        wait(0.1);
        return ends;
    }
    Ends get(const std::shared_ptr<MPMediaItem>& item) {
        ends.clear();
        web.getLyricText(item, keepEnd());
        wait(0.1);
        return ends;
    }
    void servePage(const std::string& body, int status = 200) {
        serve([=](const Request&, Connection& connection) { connection.answer(status, "text/html", body); });
    }
    static std::string pageWithBox(const std::string& box) {
        return "<!DOCTYPE html><html><head><title>A page</title></head><body><script>alert('x')</script>"
               "<div class='header'>menu</div><div class='lyricbox'>" +
               box + "</div></body></html>";
    }
    std::optional<std::string> stored(const std::string& title = "Song", const std::string& artist = "Band") {
        return store.getLyricForSongName(title, artist);
    }
    Targets targets() const { return server->targets(); }

    static std::shared_ptr<MPMediaItem> song(std::map<std::string, PropertyList> properties) {
        return std::make_shared<MPMediaItem>(properties);
    }
    static std::shared_ptr<MPMediaItem> song() { return song({{"title", "Song"}, {"artist", "Band"}}); }
};

TEST_F(LyricDownload, EncodesAllButWhatAFragmentMayHold) {
    EXPECT_EQ(web.encodeString("Rock & Roll? a:b/c"), "Rock%20&%20Roll?%20a:b/c");
    EXPECT_EQ(web.encodeString("-._~!$&'()*+,;=:@/?"), "-._~!$&'()*+,;=:@/?");
    EXPECT_EQ(web.encodeString("#%\"<>[]\\^`{|}"), "%23%25%22%3C%3E%5B%5D%5C%5E%60%7B%7C%7D");
    EXPECT_EQ(web.encodeString("é\n"), "%C3%A9%0A");
}

TEST_F(LyricDownload, TakesTheTextOfTheSongsPage) {
    servePage(pageWithBox("{\"content\":\"<p>one<br>two\",\"media\":[]}"));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "one\ntwo"}}));
    EXPECT_EQ(stored(), "one\ntwo");
    EXPECT_EQ(targets(), Targets{"/wiki/Band:Song"});
}

TEST_F(LyricDownload, AsksForATitleWithItsAmpersandsAndQuestionMarks) {
    servePage("");
    get("Why? & How", "A B");
    EXPECT_EQ(targets(), Targets{"/wiki/A%20B:Why?%20&%20How"});
}

TEST_F(LyricDownload, DoesNotAskForWhatIsStored) {
    servePage("");
    store.addLyric("text", "Song", "Band");
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "text"}}));
    EXPECT_TRUE(targets().empty());
}

TEST_F(LyricDownload, AnswersAStoredSongAtOnce) {
    store.addLyric("text", "Song", "Band");
    ask("Song", "Band");
    EXPECT_EQ(ends, (Ends{{LyricResult::TextPresent, "text"}}));
}

TEST_F(LyricDownload, AnswersAStoredNoLyricAtOnceAsText) {
    servePage(pageWithBox("{\"content\":\"<p>new\",\"media\":[]}"));
    store.addLyric("", "Song", "Band");
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "No lyric"}}));
    EXPECT_TRUE(targets().empty());
}

TEST_F(LyricDownload, AsksAgainForAStoredEmptyText) {
    servePage(pageWithBox("{\"content\":\"<p>new\",\"media\":[]}"));
    store.addLyric("", "Song_Band");
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "new"}}));
}

TEST_F(LyricDownload, CannotUseASongWithoutArtistOrTitle) {
    servePage("");
    EXPECT_EQ(get("Song", ""), (Ends{{LyricResult::SongNotUsable, ""}}));
    EXPECT_EQ(get("", "Band"), (Ends{{LyricResult::SongNotUsable, ""}}));
    EXPECT_EQ(get("", ""), (Ends{{LyricResult::SongNotUsable, ""}}));
    EXPECT_TRUE(targets().empty());
    EXPECT_EQ(store.getLyrics(), std::nullopt);
}

TEST_F(LyricDownload, FindsASongWithoutArtistInTheStore) {
    store.addLyric("text", "Song", "");
    EXPECT_EQ(get("Song", ""), (Ends{{LyricResult::TextPresent, "text"}}));
}

TEST_F(LyricDownload, RemembersThatAPageHasNoBox) {
    for (const char* page : {"<html><body>no such page</body></html>", "", "<div class='lyricbox'></div>"}) {
        store.removeLyric("Song_Band");
        servePage(page, 404);
        EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
        EXPECT_EQ(stored(), "No lyric");
    }
}

TEST_F(LyricDownload, KeepsABoxOfAnotherFormForTheNextTime) {
    servePage(pageWithBox("<b>one</b><br>two &amp; three"));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "<b>one</b><br>two &amp; three");
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "<b>one</b><br>two &amp; three"}}));
    EXPECT_EQ(targets().size(), 1u);
}

TEST_F(LyricDownload, RemembersThatABoxIsEmptyOnceItIsCleaned) {
    servePage(pageWithBox("{\"content\":\"<p>\",\"media\":[]}"));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "No lyric");
}

TEST_F(LyricDownload, KeepsAllOfABoxWithoutTheCut) {
    servePage(pageWithBox("{\"content\":\"<p>one<br>two\"}"));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "one\ntwo\"}</p>"}}));
}

TEST_F(LyricDownload, LeavesClosingTagsAndEntitiesInTheText) {
    servePage(pageWithBox("{\"content\":\"<p>a <i>b</i> &lt;c&gt; &eacute;</p>\",\"media\":[]}"));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "a b</i> &lt;c&gt; é</p>"}}));
}

TEST_F(LyricDownload, TakesTheFirstBoxOfAPage) {
    servePage(pageWithBox("{\"content\":\"<p>first\",\"media\":1}") +
              pageWithBox("{\"content\":\"<p>second\",\"media\":1}"));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "first"}}));
}

TEST_F(LyricDownload, RemembersAFailedLoadAsNoLyric) {
    configure(deadAddress());
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "No lyric");
}

TEST_F(LyricDownload, RemembersARedirectWithoutEndAsNoLyric) {
    serve([](const Request& request, Connection& connection) { connection.redirect(request.target); });
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "No lyric");
}

TEST_F(LyricDownload, FailsWithoutAnAddress) {
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
}

TEST_F(LyricDownload, AnswersOnlyTheNewerOfTwoRequests) {
    serve([](const Request& request, Connection& connection) {
        if (request.target == "/wiki/Band:First")
            connection.waitForEnd();
        else
            connection.answer(200, "text/html", pageWithBox("{\"content\":\"<p>second\",\"media\":1}"));
    });
    loop.setPatience(0);
    ask("First", "Band");
    wait(0.1);
    loop.setPatience(10);
    ask("Second", "Band");
    wait(0.1);
    EXPECT_EQ(ends, (Ends{{LyricResult::TextPresent, "second"}}));
    EXPECT_EQ(stored("First"), std::nullopt);
    EXPECT_EQ(stored("Second"), "second");
}

TEST_F(LyricDownload, AnswersAStrayFinishOfASubFrameAgain) {
    servePage(pageWithBox("{\"content\":\"<p>text\",\"media\":1}"));
    get("Song", "Band");
    store.removeLyric("Song_Band");
    web::UIWebView subFrame;
    web.webViewDidFinishLoad(subFrame);
    EXPECT_EQ(ends, (Ends{{LyricResult::TextPresent, "text"}, {LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "No lyric");
}

TEST_F(LyricDownload, IgnoresACancelledLoad) {
    servePage(pageWithBox("{\"content\":\"<p>text\",\"media\":1}"));
    get("Song", "Band");
    web::UIWebView view;
    web.webView(view, {foundation::URLErrorCode::Cancelled, ""});
    EXPECT_EQ(ends.size(), 1u);
    EXPECT_EQ(stored(), "text");
}

TEST_F(LyricDownload, IsOutlivedByAHandlerThatAsksForTheNextSong) {
    serve([](const Request& request, Connection& connection) {
        connection.answer(200, "text/html",
                          pageWithBox("{\"content\":\"<p>" + request.target + "\",\"media\":1}"));
    });
    web.getLyricTextForSongName("First", "Band",
                                [this](LyricResult, const std::string&) { ask("Second", "Band"); });
    wait(0.1);
    EXPECT_EQ(stored("First"), "/wiki/Band:First");
    EXPECT_EQ(ends, Ends()) << "loading stops when a page is done with";
    EXPECT_EQ(stored("Second"), std::nullopt);
}

TEST_F(LyricDownload, TellsBeforeItStores) {
    std::vector<std::optional<std::string>> storedWhenTold;
    const auto told = [&](LyricResult, const std::string&) { storedWhenTold.push_back(stored()); };
    const auto ask = [&](const std::shared_ptr<MPMediaItem>& item) {
        item ? web.getLyricText(item, told) : web.getLyricTextForSongName("Song", "Band", told);
        wait(0.1);
        EXPECT_NE(stored(), std::nullopt);
        store.removeLyric("Song_Band");
    };
    servePage(pageWithBox("{\"content\":\"<p>text\",\"media\":1}"));
    ask(nullptr);
    ask(song());
    ask(song({{"title", "Song"}, {"artist", "Band"}, {"lyrics", "own"}}));
    configure(deadAddress());
    ask(nullptr);
    EXPECT_EQ(storedWhenTold, (std::vector<std::optional<std::string>>(4)));
}

TEST_F(LyricDownload, GivesUpOnAPageOfMegabytes) {
    servePage(pageWithBox(std::string(3'000'000, 'x')));
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "No lyric");
}

TEST_F(LyricDownload, ReadsPagesOfOtherEncodings) {
    serve([](const Request&, Connection& connection) {
        connection.answer(200, "text/html; charset=iso-8859-1",
                          pageWithBox("{\"content\":\"<p>d\xE9j\xE0 vu\",\"media\":1}"));
    });
    EXPECT_EQ(get("Song", "Band"), (Ends{{LyricResult::TextPresent, "déjà vu"}}));
}

TEST_F(LyricDownload, TakesTheLyricOfALibrarySongItself) {
    servePage("");
    const auto item = song({{"title", "Song"}, {"artist", "Band"}, {"lyrics", "own"}});
    EXPECT_EQ(get(item), (Ends{{LyricResult::TextPresent, "own"}}));
    EXPECT_EQ(stored(), "own");
    EXPECT_TRUE(targets().empty());
}

TEST_F(LyricDownload, TakesAnEmptyLyricOfALibrarySongForItsOwnToo) {
    servePage("");
    store.addLyric("text", "Song", "Band");
    EXPECT_EQ(get(song({{"title", "Song"}, {"artist", "Band"}, {"lyrics", ""}})),
              (Ends{{LyricResult::TextPresent, ""}}));
    EXPECT_EQ(stored(), "");
    EXPECT_TRUE(targets().empty());
}

TEST_F(LyricDownload, FindsALibrarySongInTheStore) {
    servePage("");
    store.addLyric("text", "Song", "Band");
    EXPECT_EQ(get(song()), (Ends{{LyricResult::TextPresent, "text"}}));
    EXPECT_TRUE(targets().empty());
}

TEST_F(LyricDownload, CannotUseALibrarySongWithoutTitleOrArtist) {
    servePage("");
    EXPECT_EQ(get(nullptr), (Ends{{LyricResult::SongNotUsable, ""}}));
    EXPECT_EQ(get(song({{"title", "Song"}})), (Ends{{LyricResult::SongNotUsable, ""}}));
    EXPECT_EQ(get(song({{"artist", "Band"}, {"title", ""}})), (Ends{{LyricResult::SongNotUsable, ""}}));
    EXPECT_TRUE(targets().empty());
}

TEST_F(LyricDownload, TakesThePlainAnswerForALibrarySong) {
    servePage("one\ntwo <br>");
    EXPECT_EQ(get(song({{"title", "A & B"}, {"artist", "C D"}})),
              (Ends{{LyricResult::TextPresent, "one\ntwo <br>"}}));
    EXPECT_EQ(targets(), Targets{"/wiki/?artist=C%20D&song=A%20&%20B"});
    EXPECT_EQ(stored("A & B", "C D"), "one\ntwo <br>");
}

TEST_F(LyricDownload, AsksAgainForALibrarySongWithoutAnswer) {
    servePage("");
    EXPECT_EQ(get(song()), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "");
    EXPECT_EQ(get(song()), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(targets().size(), 2u);
}

TEST_F(LyricDownload, ForgetsAFailedTransferOfALibrarySong) {
    servePage("text", 500);
    EXPECT_EQ(get(song()), (Ends{{LyricResult::TransferFailed, ""}}));
    EXPECT_EQ(stored(), std::nullopt);
    configure(deadAddress());
    EXPECT_EQ(get(song()), (Ends{{LyricResult::TransferFailed, ""}}));
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(LyricDownload, TakesAPlainAnswerThatIsNoTextForNone) {
    servePage("\xFF\xFE\x80");
    EXPECT_EQ(get(song()), (Ends{{LyricResult::NoLyric, ""}}));
    EXPECT_EQ(stored(), "");
}

} // namespace
