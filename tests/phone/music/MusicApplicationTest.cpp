#include "hosts/phone/applications/MusicRow.h"
#include "hosts/phone/applications/MusicView.h"
#include "hosts/phone/music/PhoneMediaPort.h"
#include "platform/foundation/FileManager.h"
#include "platform/media/MPUNowPlayingController.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "tests/support/PhoneTest.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestMusicLibrary.h"

#include <gmock/gmock.h>

using namespace toolkit;
using phone::MusicRow;

namespace {

struct Music : support::PhoneTest {
    Music() { foundation::FileManager::shared().setDeviceRoot(directory.path()); }

    void startWithLibrary() {
        phone::PhoneConfiguration configuration;
        configuration.musicLibrary = library;
        start(configuration);
        open("com.apple.Music");
    }
    static UILabel* label(const std::string& text) {
        return find<UILabel>([&](UILabel& each) { return each.text() == text && isShown(&each); });
    }
    static MusicRow* row(const std::string& title) {
        return find<MusicRow>([&](MusicRow& each) {
            return isShown(&each) &&
                   std::any_of(each.subviews().begin(), each.subviews().end(), [&](auto& view) {
                       const auto* text = dynamic_cast<UILabel*>(view.get());
                       return text && text->text() == title;
                   });
        });
    }
    void tapOn(const UIView& view) { tap(screenFrame(view).center()); }
    phone::MusicPlayer& player() { return phone().music().player(); }
    std::string playing() {
        const auto item = player().nowPlayingItem();
        return item ? *item->valueForProperty(media::MPMediaItemPropertyTitle).string() : "none";
    }

    tests::TemporaryDirectory directory;
    std::shared_ptr<support::TestMusicLibrary> library = std::make_shared<support::TestMusicLibrary>();
};

TEST_F(Music, SaysWhereMusicIsLookedForWhenThereIsNone) {
    library->addDirectory("/home/someone/Music");
    startWithLibrary();
    EXPECT_NE(label("No Music"), nullptr);
    EXPECT_NE(label("Music is looked for in /home/someone/Music."), nullptr);
    library->setScanning(true);
    loop.advance(0.1);
    EXPECT_NE(label("Looking for music…"), nullptr);
}

TEST_F(Music, ListsTheSongsAndTakesUpNewOnes) {
    library->add("Rain", "Mira Vale", "Attic", 155);
    startWithLibrary();
    EXPECT_NE(label("Rain"), nullptr);
    EXPECT_NE(label("Mira Vale — Attic"), nullptr);
    EXPECT_NE(label("2:35"), nullptr);
    EXPECT_EQ(label("No Music"), nullptr);
    library->add("Boats", "The Long Tide", "Low Water");
    loop.advance(0.1);
    EXPECT_NE(label("Boats"), nullptr);
    library->setSongs({});
    loop.advance(0.1);
    EXPECT_EQ(label("Rain"), nullptr);
    EXPECT_NE(label("No Music"), nullptr);
}

TEST_F(Music, PlaysTheSongThatIsTappedAndThenTheNext) {
    library->add("Rain", "Mira Vale", "Attic", 20);
    library->add("Boats", "The Long Tide", "Low Water", 20);
    library->add("Ferry", "The Long Tide", "Low Water", 20);
    startWithLibrary();
    tapOn(*row("Boats"));
    EXPECT_EQ(playing(), "Boats");
    EXPECT_TRUE(player().isPlaying());
    loop.advance(21);
    EXPECT_EQ(playing(), "Ferry");
}

TEST_F(Music, ShowsWhatPlaysInABarWithButtons) {
    library->add("Rain", "Mira Vale", "Attic");
    library->add("Boats", "The Long Tide", "Low Water");
    startWithLibrary();
    EXPECT_FALSE(isShown(find<phone::NowPlayingBar>()));
    tapOn(*row("Rain"));
    loop.advance(0.1);
    auto* bar = find<phone::NowPlayingBar>();
    EXPECT_TRUE(isShown(bar));
    const auto button = [&](media::TransportSign sign) {
        return find<media::MPUTransportButton>([&](auto& each) { return each.sign() == sign; });
    };
    tapOn(*button(media::TransportSign::Pause));
    EXPECT_FALSE(player().isPlaying());
    tapOn(*button(media::TransportSign::Play));
    EXPECT_TRUE(player().isPlaying());
    tapOn(*button(media::TransportSign::Next));
    EXPECT_EQ(playing(), "Boats");
}

TEST_F(Music, ScrollsThroughALongLibraryWithAFewRows) {
    media::MediaItems many;
    for (std::int64_t i = 1; i <= 100'000; ++i)
        many.push_back(std::make_shared<media::MPMediaItem>(std::map<std::string, foundation::PropertyList>{
            {media::MPMediaItemPropertyPersistentID, i},
            {media::MPMediaItemPropertyTitle, "Song " + std::to_string(i)}}));
    library->setSongs(std::move(many));
    startWithLibrary();
    const auto list = find<phone::RowList>();
    EXPECT_LT(list->subviews().size(), 30u);
    list->scrollToRow(50'000);
    loop.advance(1);
    EXPECT_NE(label("Song 50001"), nullptr);
    EXPECT_LT(list->subviews().size(), 50u);
    tapOn(*row("Song 50001"));
    EXPECT_EQ(playing(), "Song 50001");
}

TEST_F(Music, ShowsCoversAsTheyComeAndAPlaceholderForBrokenOnes) {
    library->add("Rain", "Mira Vale", "Attic");
    library->add("Boats", "The Long Tide", "Low Water");
    library->covers[1] = encodePng(*Image::draw({64, 64}, 1, [](Canvas&) {}));
    library->covers[2] = {'n', 'o'};
    startWithLibrary();
    const auto coverOf = [&](const char* title) {
        for (const auto& view : row(title)->subviews())
            if (const auto* picture = dynamic_cast<UIImageView*>(view.get()))
                return picture->image();
        return std::shared_ptr<const Image>();
    };
    ASSERT_NE(coverOf("Boats"), nullptr);
    EXPECT_EQ(coverOf("Rain")->pixelWidth(), 64);
    EXPECT_NE(coverOf("Boats")->pixelWidth(), 64);
}

TEST_F(Music, ShowsHostileTitlesOnOneLine) {
    library->add(std::string(10'000, 'x'), "a\nb", "../..");
    library->add(std::string("nul\0l", 5), "", "");
    library->add("", "\xff\xfe", "");
    startWithLibrary();
    EXPECT_NE(label("a b — ../.."), nullptr);
    EXPECT_NE(label("null"), nullptr);
    tap({180, 100});
    EXPECT_TRUE(player().isPlaying());
    phone().captureScreen();
}

TEST_F(Music, IsNamedByItsApplicationToTheHomeScreen) {
    startWithLibrary();
    EXPECT_EQ(phone().displayName("com.apple.Music"), "Music");
    EXPECT_EQ(phone().displayName("org.example.unknown"), std::nullopt);
}

TEST_F(Music, ComesToTheFrontWhenThePlayingApplicationIsLaunched) {
    library->add("Rain", "Mira Vale", "Attic");
    startWithLibrary();
    phone().press(phone::Button::Home);
    loop.advance(1);
    phone().music().launchApplication("com.apple.Music");
    loop.advance(1);
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Music");
    player().playSilentStream({"Harbour", "Mira"});
    phone().music().launchApplication("com.apple.Music");
    loop.advance(1);
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Radio");
}

TEST_F(Music, BeginsWithTheLibraryWhenPlayIsPressedAndNothingWasPlayed) {
    startWithLibrary();
    phone().music().perform(media::RemoteCommand::Play);
    EXPECT_FALSE(player().isPlaying());
    library->add("Rain", "Mira Vale", "Attic");
    phone().music().perform(media::RemoteCommand::NextTrack);
    EXPECT_EQ(playing(), "none");
    phone().music().perform(media::RemoteCommand::TogglePlayPause);
    EXPECT_EQ(playing(), "Rain");
}

TEST_F(Music, ReportsToTheNowPlayingController) {
    library->add("Rain", "Mira Vale", "Attic");
    startWithLibrary();
    tapOn(*row("Rain"));
    loop.advance(2.1);
    const auto& now = media::MPUNowPlayingController::sharedController();
    EXPECT_TRUE(now.isPlaying());
    EXPECT_EQ(now.nowPlayingAppBundleIdentifier(), "com.apple.Music");
    EXPECT_GE(now.currentElapsed(), 1);
    EXPECT_EQ(now.currentDuration(), 180);
}

TEST_F(Music, HasTheVolumeThatTheButtonsAndSlidersSet) {
    startWithLibrary();
    const auto& now = media::MPUNowPlayingController::sharedController();
    const double before = phone().music().volume();
    phone().press(phone::Button::VolumeUp);
    EXPECT_NEAR(phone().music().volume(), before + 1.0 / 16, 1e-9);
    EXPECT_EQ(now.currentVolume(), phone().music().volume());
    EXPECT_EQ(player().volume(), phone().music().volume());
    const int shown = phone().hudCount();
    phone().music().setVolume(0.3);
    EXPECT_EQ(phone().hudCount(), shown + 1);
    EXPECT_NEAR(player().volume(), 0.3, 1e-9);
    phone().music().setVolume(7);
    EXPECT_EQ(phone().music().volume(), 1);
    phone().music().setVolume(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(phone().music().volume(), 1);
    phone().press(phone::Button::VolumeDown);
    EXPECT_NEAR(phone().music().volume(), 15.0 / 16, 1e-9);
}

} // namespace
