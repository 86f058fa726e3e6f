// Whatever a session can do to the host, in any order.
#include "tests/session/Occurrences.h"
#include "tests/session/SessionTest.h"

#include <array>
#include <cstdlib>
#include <random>
#include <utility>

#include <linux/input-event-codes.h>

namespace tests {

class SessionEndurance : public SessionTest {
protected:
    /// VELA_ENDURANCE_STEPS makes it longer, VELA_ENDURANCE_SEED another one.
    static int setting(const char* name, int otherwise) {
        const char* value = std::getenv(name);
        return value ? std::atoi(value) : otherwise;
    }

    void step() {
        switch (upTo(11)) {
        case 0:
        case 1:
            return pressAnywhere();
        case 2:
        case 3:
            return dragAnywhere();
        case 4:
            return letGo();
        case 5:
            return void(request("Show", oneOf(sides)));
        case 6:
            return void(request("Toggle", oneOf(sides)));
        case 7:
            return void(request("Dismiss"));
        case 8:
            return strike(oneOf(keys));
        case 9:
            return changeOutput();
        default:
            return changeWindow();
        }
    }
    void letGo() {
        if (std::exchange(isDown_, false))
            release();
        client().serve();
    }
    void closeWindow() {
        if (std::exchange(hasWindow_, false))
            client().closeWindow();
    }

    static constexpr std::array sides{"left", "right"};

private:
    static constexpr std::array<unsigned, 5> keys{KEY_ESC, KEY_A, KEY_BACKSPACE, KEY_ENTER, KEY_SPACE};
    /// The usual ones more often, for most of the time is spent with them.
    static constexpr std::array changes{
        "scale 1",       "scale 1.25",        "scale 1.5",        "scale 2",
        "scale 3",       "mode 750x1334",     "mode 1000x1400",   "mode 333x777",
        "transform 90",  "transform 180",     "transform normal", "transform normal",
        "transform 270", "transform flipped", "transform normal", "scale 2"};

    int upTo(std::size_t limit) {
        return std::uniform_int_distribution<int>(0, static_cast<int>(limit) - 1)(random_);
    }
    template <class Choices>
    typename Choices::value_type oneOf(const Choices& choices) {
        return choices[static_cast<std::size_t>(upTo(choices.size()))];
    }
    /// On the screen, and more often than not at one of its edges.
    double across() {
        const int edge = upTo(3);
        return edge == 0 ? 1 : edge == 1 ? width_ - 1 : upTo(static_cast<std::size_t>(width_));
    }
    std::pair<double, double> anywhere() {
        const double x = across(); // before y, whatever the compiler
        return {x, upTo(static_cast<std::size_t>(height_))};
    }

    void pressAnywhere() {
        if (std::exchange(isDown_, true))
            return;
        const auto [x, y] = anywhere();
        press(x, y);
    }
    void dragAnywhere() {
        if (!isDown_)
            return;
        const auto [x, y] = anywhere();
        dragTo(x, y, 0.05 * (1 + upTo(6)));
    }
    void changeOutput() {
        compositor().command(std::string("output HEADLESS-1 ") + oneOf(changes));
        const auto now = state();
        if (now.is_null())
            return;
        width_ = std::max(10, now["screen"]["width"].get<int>());
        height_ = std::max(10, now["screen"]["height"].get<int>());
        client().setScreen(width_, height_);
    }
    void changeWindow() {
        if (std::exchange(hasWindow_, !hasWindow_))
            client().closeWindow();
        else
            client().openWindow("org.example.Editor");
    }

    std::mt19937 random_{static_cast<unsigned>(setting("VELA_ENDURANCE_SEED", 1))};
    bool isDown_ = false, hasWindow_ = false;
    int width_ = screenWidth, height_ = screenHeight;
};

TEST_F(SessionEndurance, SurvivesAnythingInAnyOrder) {
    startCompositor();
    startHost({"--no-supervisor"}, HostLog::Words);
    client().addKeyboard("us");
    for (int i = 0; i < setting("VELA_ENDURANCE_STEPS", 150); ++i) {
        step();
        ASSERT_FALSE(state().is_null()) << "after " << i << " steps\n" << log();
    }
    letGo();
    closeWindow();
    for (const char* usual : {"mode 750x1334", "scale 2", "transform normal"})
        ASSERT_TRUE(compositor().command(std::string("output HEADLESS-1 ") + usual));
    EXPECT_TRUE(eventually([&] { return state()["screen"]["width"] == screenWidth; }));
    EXPECT_EQ(count(log(), "the compositor is gone"), 0u) << log();
    // What was interrupted keeps a panel's flag as it was, until it has once come and gone undisturbed.
    for (const std::string side : sides) {
        const auto isShown = [&] { return window(side + "WindowGrabber")["properties"]["showed"] == true; };
        EXPECT_TRUE(eventually([&] { return shown() == side && isShown(); }, [&] { request("Show", side); }));
        ASSERT_TRUE(request("Dismiss"));
        EXPECT_TRUE(eventually([&] { return shown() == "" && !isShown(); }));
    }
    EXPECT_TRUE(waitForRest(""));
    EXPECT_TRUE(eventually([&] { return pixel(20, 300) == "#336699"; })) << pixel(20, 300);
}

} // namespace tests
