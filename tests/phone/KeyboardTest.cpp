#include "tests/support/PhoneTest.h"

#include "hosts/phone/applications/NotesView.h"
#include "hosts/phone/screens/KeyboardWindow.h"
#include "platform/homescreen/UIPeripheralHost.h"

using namespace toolkit;
using phone::Button;
using phone::KeyRole;

namespace {

class Keyboard : public support::PhoneTest {
protected:
    void openNote() {
        open("com.apple.mobilenotes");
        text().setText("");
        tap({180, 300});
        loop.advance(0.5);
    }
    UITextView& text() { return *find<UITextView>(); }
    Rect keyboardFrame() { return homescreen::UIPeripheralHost::visiblePeripheralFrame(); }
    Point keyCenter(KeyRole role, const std::string& typed = "") {
        auto* key = find<phone::KeyboardKey>([&](phone::KeyboardKey& each) {
            return each.place().role == role && (typed.empty() || each.place().text == typed);
        });
        EXPECT_NE(key, nullptr) << typed;
        return key ? screenFrame(*key).center() : Point();
    }
    void type(const std::string& text) {
        for (char c : text)
            tap(keyCenter(KeyRole::Text, std::string(1, c)));
    }
};

} // namespace

TEST_F(Keyboard, StaysAwayUntilSomethingTakesText) {
    start();
    EXPECT_EQ(keyboardFrame(), (Rect{0, 667, 375, 0}));
    openNote();
    EXPECT_EQ(keyboardFrame(), (Rect{0, 451, 375, 216}));
    auto* window = find<phone::KeyboardWindow>();
    EXPECT_EQ(window->windowLevel(), 1100);
    EXPECT_EQ(window->frame(), (Rect{0, 451, 375, 216}));
}

TEST_F(Keyboard, LiesAboveTheWindowThatIsTypedInto) {
    start();
    const auto overlay = std::make_shared<UIWindow>();
    overlay->setFrame({0, 0, 300, 667});
    overlay->setWindowLevel(2001);
    const auto field = std::make_shared<UITextField>();
    field->setFrame({0, 0, 300, 44});
    overlay->addSubview(field);
    overlay->setHidden(false);
    field->becomeFirstResponder();
    loop.advance(0.5);
    EXPECT_GT(find<phone::KeyboardWindow>()->windowLevel(), 2001);
    type("ab");
    EXPECT_EQ(field->text(), "Ab");
    field->resignFirstResponder();
    loop.advance(0.5);

    openNote();
    EXPECT_EQ(find<phone::KeyboardWindow>()->windowLevel(), 1100);
}

TEST_F(Keyboard, SlidesInOverAQuarterOfASecond) {
    start();
    auto* window = find<phone::KeyboardWindow>();
    const auto shownTop = [&] {
        return std::get<Point>(window->layer()->presented(LayerProperty::Position)).y - 108;
    };
    phone().setKeyboardShown(true);
    loop.advance(0.125);
    EXPECT_NEAR(shownTop(), 667 - 108, 1); // half way
    loop.advance(0.13);
    EXPECT_EQ(shownTop(), 451);
}

TEST_F(Keyboard, IsLowerInLandscapeAndFollowsTheRotation) {
    start();
    openNote();
    phone().rotate(DeviceOrientation::LandscapeRight);
    loop.advance(0.5);
    EXPECT_EQ(keyboardFrame(), (Rect{0, 213, 667, 162}));
    EXPECT_EQ(find<phone::KeyboardWindow>()->frame(), keyboardFrame());
}

TEST_F(Keyboard, TypesWhatIsTouched) {
    start();
    openNote();
    type("sea");
    tap(keyCenter(KeyRole::Space));
    type("air");
    tap(keyCenter(KeyRole::Return));
    EXPECT_EQ(text().text(), "Sea air\n"); // shift is on for the first letter
}

TEST_F(Keyboard, TypesTheNearestKeyForATouchBetweenKeys) {
    start();
    openNote();
    const Point q = keyCenter(KeyRole::Text, "q");
    tap({1, q.y});
    EXPECT_EQ(text().text(), "Q");
}

TEST_F(Keyboard, TypesWhereTheFingerIsLifted) {
    start();
    openNote();
    drag(keyCenter(KeyRole::Text, "q"), keyCenter(KeyRole::Text, "p"), 20);
    EXPECT_EQ(text().text(), "P");
}

TEST_F(Keyboard, ShiftsOnceOrUntilItIsTappedAgain) {
    start();
    openNote();
    const Point shift = keyCenter(KeyRole::Shift);
    type("a"); // takes the first letter's shift away
    tap(shift);
    type("bc");
    loop.advance(1);
    tap(shift);
    tap(shift); // twice in a moment locks
    type("de");
    loop.advance(1);
    tap(shift);
    type("f");
    EXPECT_EQ(text().text(), "ABcDEf");
}

TEST_F(Keyboard, HasPagesOfDigitsAndSymbols) {
    start();
    openNote();
    type("a");
    tap(keyCenter(KeyRole::Page));
    loop.advance(0.1);
    type("42!");
    auto* symbols = find<phone::KeyboardKey>([](phone::KeyboardKey& key) {
        return key.place().role == KeyRole::Page && key.place().page == phone::KeyboardPage::Symbols;
    });
    ASSERT_NE(symbols, nullptr);
    tap(screenFrame(*symbols).center());
    loop.advance(0.1);
    type("#{");
    EXPECT_EQ(text().text(), "A42!#{");
}

TEST_F(Keyboard, DeletesOnTouchAndRepeatsWhileHeld) {
    start();
    openNote();
    phone().typeText("0123456789");
    phone().touchDown(1, keyCenter(KeyRole::Backspace));
    EXPECT_EQ(text().text(), "012345678");
    loop.advance(0.45);
    EXPECT_EQ(text().text(), "012345678");
    loop.advance(0.40); // 0.5 s until it repeats, then one every 0.1 s
    phone().touchUp(1);
    EXPECT_EQ(text().text(), "012345");
    loop.advance(1);
    EXPECT_EQ(text().text(), "012345");
}

TEST_F(Keyboard, TakesTextFromARealKeyboardToo) {
    start();
    phone().typeText("lost"); // nothing has the focus
    openNote();
    phone().typeText("früh");
    phone().typeBackspace();
    EXPECT_EQ(text().text(), "frü");
}

TEST_F(Keyboard, GoesAwayByItsOwnKeyByDoneAndWithTheApplication) {
    start();
    openNote();
    tap(keyCenter(KeyRole::Hide));
    EXPECT_EQ(keyboardFrame().height, 0);
    EXPECT_EQ(TextInput::current(), nullptr);
    loop.advance(0.5);
    tap({180, 300});
    EXPECT_GT(keyboardFrame().height, 0);
    tap({340, 42}); // "Done"
    EXPECT_EQ(keyboardFrame().height, 0);
    loop.advance(0.5);
    tap({180, 300});
    phone().press(Button::Home);
    EXPECT_EQ(keyboardFrame().height, 0);
    loop.advance(0.5);
    EXPECT_TRUE(find<phone::KeyboardWindow>()->isHidden());
}

TEST_F(Keyboard, ShowsAndHidesAsForcedWhateverHasTheFocus) {
    start();
    phone().setKeyboardShown(true);
    EXPECT_EQ(keyboardFrame().height, 216);
    phone().setKeyboardShown(false);
    EXPECT_EQ(keyboardFrame().height, 0);
    openNote();
    phone().setKeyboardShown(false);
    EXPECT_EQ(keyboardFrame().height, 0);
}

TEST_F(Keyboard, LeavesRoomForTheNote) {
    start();
    openNote();
    EXPECT_LE(screenFrame(text()).maxY(), keyboardFrame().y);
    tap(keyCenter(KeyRole::Hide));
    loop.advance(0.5);
    EXPECT_GT(screenFrame(text()).maxY(), 600);
}

TEST(KeyboardLayout, KeepsItsKeysApartAndInside) {
    using namespace phone;
    for (const Size size :
         {Size{320, 216}, {375, 216}, {414, 216}, {568, 162}, {667, 162}, {768, 264}, {1024, 352}})
        for (const auto page : {KeyboardPage::Letters, KeyboardPage::Digits, KeyboardPage::Symbols}) {
            const auto keys = layOutKeys(page, size);
            for (std::size_t i = 0; i < keys.size(); ++i) {
                const Rect key = keys[i].frame;
                EXPECT_TRUE(key.x >= 0 && key.y >= 0 && key.maxX() <= size.width && key.maxY() <= size.height)
                    << keys[i].text << " at " << size.width;
                EXPECT_GT(key.width, 20) << keys[i].text;
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_FALSE(key.intersects(keys[j].frame))
                        << keys[i].text << " and " << keys[j].text << " at " << size.width;
            }
        }
}
