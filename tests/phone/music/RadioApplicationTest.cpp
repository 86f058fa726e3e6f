#include "hosts/phone/applications/RadioView.h"
#include "hosts/phone/music/PhoneMediaPort.h"
#include "hosts/phone/music/RadioStations.h"
#include "platform/foundation/FileManager.h"
#include "tests/support/PhoneTest.h"
#include "tests/support/TemporaryDirectory.h"

using namespace toolkit;
using phone::RadioStations;

namespace {

struct Radio : support::PhoneTest {
    Radio() { foundation::FileManager::shared().setDeviceRoot(directory.path()); }

    void startWithStations() {
        ASSERT_TRUE(RadioStations::add({"Night", "http://radio.example/night"}));
        ASSERT_TRUE(RadioStations::add({"Morning", "http://radio.example/morning"}));
        start();
        open("com.apple.Radio");
    }
    static UILabel* label(const std::string& text) {
        return find<UILabel>([&](UILabel& each) { return each.text() == text && isShown(&each); });
    }
    void tapLabel(const std::string& text) {
        ASSERT_NE(label(text), nullptr) << text;
        tap(screenFrame(*label(text)).center());
        loop.advance(0.5);
    }

    tests::TemporaryDirectory directory;
};

TEST_F(Radio, ListsTheStationsAndPlaysTheOneThatIsTapped) {
    startWithStations();
    tapLabel("Morning");
    EXPECT_TRUE(phone().music().player().isRadioStation());
    EXPECT_EQ(phone().music().player().station()->url, "http://radio.example/morning");
    EXPECT_TRUE(isShown(find<phone::NowPlayingBar>()));
}

TEST_F(Radio, AddsAStation) {
    startWithStations();
    tapLabel("Add");
    const auto form = find<phone::StationForm>();
    EXPECT_TRUE(isShown(form));
    EXPECT_TRUE(form->nameField()->isEditing());
    phone().typeText("Evening");
    form->addressField()->becomeFirstResponder();
    phone().typeText("radio.example/evening");
    tapLabel("Save");
    EXPECT_FALSE(isShown(form));
    EXPECT_NE(label("Evening"), nullptr);
    EXPECT_EQ(RadioStations::all().back().url, "http://radio.example/evening");
}

TEST_F(Radio, AsksAgainForAnAddressThatIsNone) {
    startWithStations();
    tapLabel("Add");
    phone().typeText("Evening");
    tapLabel("Save");
    EXPECT_TRUE(isShown(find<phone::StationForm>()));
    EXPECT_EQ(RadioStations::all().size(), 2u);
    tapLabel("Cancel");
    EXPECT_FALSE(isShown(find<phone::StationForm>()));
    EXPECT_EQ(RadioStations::all().size(), 2u);
}

TEST_F(Radio, TakesAStationAwayWhileEditing) {
    startWithStations();
    tapLabel("Edit");
    const auto row = find<phone::MusicRow>([](auto& each) { return each.index() == 0 && isShown(&each); });
    tap({screenFrame(*row).x + 26, screenFrame(*row).center().y});
    loop.advance(0.5);
    EXPECT_EQ(label("Night"), nullptr);
    ASSERT_EQ(RadioStations::all().size(), 1u);
    EXPECT_EQ(RadioStations::all().front().name, "Morning");
    EXPECT_FALSE(phone().music().player().isRadioStation());
    tapLabel("Done");
    tapLabel("Morning");
    EXPECT_TRUE(phone().music().player().isRadioStation());
}

TEST_F(Radio, PlaysNothingByATapWhileEditing) {
    startWithStations();
    tapLabel("Edit");
    tapLabel("Morning");
    EXPECT_FALSE(phone().music().player().isRadioStation());
}

TEST_F(Radio, SaysSoWhenThereAreNoStations) {
    start();
    open("com.apple.Radio");
    EXPECT_NE(label("No Stations\nAdd one by its address."), nullptr);
    EXPECT_EQ(label("Edit"), nullptr);
}

} // namespace
