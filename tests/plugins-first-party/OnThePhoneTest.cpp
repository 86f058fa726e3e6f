// The plug-ins on a whole phone: the finger reaches them through the panel, the board and the tile, and the
// on-screen keyboard types into them.
#include "plugins/calculator/KeyGrid.h"
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using calculatorplugin::Key;
using calculatorplugin::KeyGrid;
using nlohmann::json;
using testing::HasSubstr;
using tests::PhoneRun;

const std::string pull = "touch down 5 300\ntouch move 320 300 over 0.3\ntouch up\nwait 0.6\n";
const std::string openTile = "tap 140 300\nwait 2\n";

class OnThePhone : public testing::Test {
protected:
    void play(const std::string& name, const std::string& script) {
        const std::string bundle = std::string(VELA_BINARY_DIR "/device/") +
                                   "Library/Application Support/Vela/Plugins/" + name + ".bundle";
        const auto child =
            run_.play("install \"" + bundle + "\"\n" + pull + openTile + script, {"--no-plugins"});
        ASSERT_EQ(child.exitCode, 0) << child.errors;
    }
    /// A file of a plug-in's storage; empty when there is none.
    std::string stored(const std::string& plugin, const std::string& name) const {
        std::ifstream stream(run_.root() + "/var/mobile/Library/Vela/PluginData/org.lanternhub.vela." +
                             plugin + "/" + name);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// A tap on a key of the on-screen keyboard.
    static std::string tapKey(const json& state, const std::string& caption) {
        const json window = PhoneRun::window(state, "KeyboardWindow");
        for (const json& key : PhoneRun::views(window, "KeyboardKey"))
            if (key["properties"]["caption"] == caption)
                return tap(window["frame"][0].get<double>() + middle(key["frame"], 0),
                           window["frame"][1].get<double>() + middle(key["frame"], 1));
        throw std::runtime_error("no key " + caption);
    }
    static double middle(const json& frame, std::size_t axis) {
        return frame[axis].get<double>() + frame[axis + 2].get<double>() / 2;
    }
    static std::string tap(double x, double y) {
        return "tap " + std::to_string(x) + " " + std::to_string(y) + "\nwait 0.2\n";
    }
    /// Frames lie within the tile that fills the panel; the plug-in's view begins beneath the title.
    static json pluginView(const json& state, const std::string& cls) {
        return PhoneRun::views(PhoneRun::window(state, "leftController"), cls).at(0);
    }
    static json button(const json& view, const std::string& title) {
        for (const json& each : PhoneRun::views(view, "UIButton"))
            if (each["text"] == title)
                return each;
        throw std::runtime_error("no button " + title);
    }
    static std::string tapIn(const json& view, const json& child) {
        return tap(view["frame"][0].get<double>() + middle(child["frame"], 0),
                   view["frame"][1].get<double>() + middle(child["frame"], 1));
    }

    PhoneRun run_;
};

TEST_F(OnThePhone, TheCalculatorsKeysTakeTaps) {
    play("Calculator", "state state.json\n");
    const json view = pluginView(run_.state(), "CalculatorView");
    const auto& frame = view["frame"];
    const KeyGrid grid = KeyGrid::in({0, 0, frame[2], frame[3]});
    std::string taps;
    for (const Key wanted : {Key::Seven, Key::Multiply, Key::Six, Key::Equals})
        for (const auto& placed : grid.keys)
            if (placed.key == wanted)
                taps += tap(frame[0].get<double>() + placed.frame.center().x,
                            frame[1].get<double>() + placed.frame.center().y);
    play("Calculator", taps + "wait 1\n");
    EXPECT_THAT(stored("calculator", "state.txt"), HasSubstr("given 42e0\n"));
}

TEST_F(OnThePhone, TheKeyboardTypesIntoANote) {
    play("Notes", "state state.json\n");
    const json view = pluginView(run_.state(), "NotesView");
    const std::string newNote = tapIn(view, button(view, "New")) + "wait 0.5\n";
    play("Notes", newNote + "state state.json\n");
    const json typing = run_.state();
    EXPECT_GT(typing["keyboard"][3].get<double>(), 0);
    play("Notes", newNote + tapKey(typing, "H") + tapKey(typing, "I") + "state state.json\n");
    EXPECT_THAT(stored("notes", "note-1.txt"), HasSubstr("\n\nHi"));

    // Sent away, the panel takes the keyboard with it.
    play("Notes", newNote + "press home\nwait 1\nstate state.json\n");
    EXPECT_EQ(run_.state()["keyboard"][3].get<double>(), 0);
}

TEST_F(OnThePhone, ANoteIsThereAtTheNextStart) {
    play("Notes", "state state.json\n");
    const json view = pluginView(run_.state(), "NotesView");
    play("Notes",
         tapIn(view, button(view, "New")) + "wait 0.5\ntype \"kept\"\n"); // ends in the midst of typing
    play("Notes", "state state.json\n");
    std::vector<std::string> texts;
    for (const json& label : PhoneRun::views(pluginView(run_.state(), "NotesView"), "UILabel"))
        texts.push_back(label["text"]);
    EXPECT_THAT(texts, testing::Contains("1 note"));
}

} // namespace
