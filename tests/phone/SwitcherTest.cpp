#include "tests/support/PhoneTest.h"

#include "hosts/phone/SwitcherWindow.h"

using namespace toolkit;
using phone::Button;

namespace {

class Switcher : public support::PhoneTest {
protected:
    void openTwoAndSwitch() {
        open("com.apple.Music");
        open("com.apple.Preferences");
        phone().press(Button::HomeDouble);
        loop.advance(0.5);
    }
    phone::SwitcherCard* card(const std::string& identifier) {
        return find<phone::SwitcherCard>(
            [&](phone::SwitcherCard& each) { return each.bundleIdentifier() == identifier; });
    }
    bool isOpen() { return isShown(find<phone::SwitcherWindow>()); }
};

} // namespace

TEST_F(Switcher, ShowsNothingBeforeAnApplicationWasOpened) {
    start();
    EXPECT_FALSE(phone().pressHomeTwice());
    EXPECT_FALSE(isOpen());
}

TEST_F(Switcher, ShowsTheOpenedApplicationsTheLastOneFirst) {
    start();
    openTwoAndSwitch();
    ASSERT_TRUE(isOpen());
    ASSERT_NE(card("com.apple.Music"), nullptr);
    ASSERT_NE(card("com.apple.Preferences"), nullptr);
    EXPECT_EQ(card("com.apple.mobilenotes"), nullptr);
    EXPECT_LT(screenFrame(*card("com.apple.Preferences")).x, screenFrame(*card("com.apple.Music")).x);
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Preferences");
}

TEST_F(Switcher, BringsTheTappedCardsApplicationToTheFront) {
    start();
    openTwoAndSwitch();
    tap({card("com.apple.Music") ? screenFrame(*card("com.apple.Music")).x + 20 : 0, 333});
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Music");
    loop.advance(0.5);
    EXPECT_FALSE(isOpen());
}

TEST_F(Switcher, LeavesEverythingAsItWasForATapBesideTheCardsAndForHome) {
    start();
    openTwoAndSwitch();
    tap({187, 30});
    loop.advance(0.5);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Preferences");
    phone().press(Button::HomeDouble);
    loop.advance(0.5);
    EXPECT_TRUE(isOpen());
    phone().press(Button::Home);
    loop.advance(0.5);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(phone().frontmostIdentifier(), "com.apple.Preferences");
}

TEST_F(Switcher, ClosesWhenThePhoneIsLocked) {
    start();
    openTwoAndSwitch();
    phone().lock();
    phone().unlock();
    loop.advance(1);
    EXPECT_FALSE(isOpen());
}
