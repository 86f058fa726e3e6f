// The board of plug-ins in the real phone, with real bundles, driven by scripts.
#include "tests/support/PhoneRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using tests::PhoneRun;

constexpr const char* plugInDirectory = "Library/Application Support/Vela/Plugins";
const std::vector<std::string> ownPlugInsOnly{"--no-plugins"};
const std::string pull = "touch down 5 300\ntouch move 320 300 over 0.3\nwait 0.2\ntouch up\nwait 0.5\n";

std::string install(const char* folder, const std::string& name) {
    return "install \"" VELA_BINARY_DIR "/" + std::string(folder) + "/" + name + ".bundle\"\n";
}

json leftPanel(const json& state) {
    return PhoneRun::window(state, "leftController");
}
std::vector<json> tiles(const json& state) {
    return PhoneRun::views(leftPanel(state), "velaApplicationView");
}
std::vector<std::string> identifiers(const json& state) {
    std::vector<std::string> names;
    for (const json& tile : tiles(state))
        names.push_back(tile["properties"]["identifier"]);
    return names;
}
std::vector<std::string> texts(const json& within, const char* cls) {
    std::vector<std::string> found;
    for (const json& view : PhoneRun::views(within, cls))
        found.push_back(view["text"]);
    return found;
}
std::vector<std::string> calls(const json& state) {
    std::vector<std::string> names;
    for (const json& call : state["pluginCalls"])
        names.push_back(call["method"]);
    return names;
}

TEST(Board, ShowsTheFirstPartyPlugIns) {
    const PhoneRun run(pull + "state state.json\n");
    EXPECT_THAT(identifiers(run.state()),
                ElementsAre("org.lanternhub.vela.calculator", "org.lanternhub.vela.calendar",
                            "org.lanternhub.vela.clock", "org.lanternhub.vela.notes",
                            "org.lanternhub.vela.system"));
    for (const json& tile : tiles(run.state())) {
        const auto icon = PhoneRun::views(PhoneRun::views(tile, "velaIconView").at(0), "UIImageView").at(0);
        EXPECT_EQ(icon["image"], json({60.0, 60.0})) << tile["properties"]["identifier"];
    }
}

TEST(Board, SaysThatItIsEmpty) {
    const PhoneRun run(pull + "state state.json\n", ownPlugInsOnly);
    EXPECT_THAT(texts(leftPanel(run.state()), "UILabel"), Contains("No application installed"));
    EXPECT_TRUE(tiles(run.state()).empty());
}

TEST(Board, LooksAgainAtTheFirstPullAndNeverThereafter) {
    const std::string close = "tap 360 300\nwait 0.5\n";
    const PhoneRun early(install("test-plug-ins", "Silent") + pull + "state state.json\n", ownPlugInsOnly);
    EXPECT_THAT(identifiers(early.state()), ElementsAre("org.example.silent"));
    const PhoneRun late(pull + close + install("test-plug-ins", "Silent") + pull + "state state.json\n",
                        ownPlugInsOnly);
    EXPECT_TRUE(tiles(late.state()).empty());
}

TEST(Board, OpensATileInOneAnimation) {
    const PhoneRun run(install("test-plug-ins", "Recorder") + install("test-plug-ins", "Silent") + pull +
                           "tap 140 200\nwait 0.4\nstate half.json\nwait 0.5\nstate open.json\n",
                       ownPlugInsOnly);
    const json half = run.state("half.json"), open = run.state("open.json");
    ASSERT_EQ(tiles(half).size(), 2U);
    for (const json& tile : tiles(half)) {
        EXPECT_TRUE(tile["properties"]["isAnimating"]);
        EXPECT_FALSE(tile["properties"]["isOpen"]);
        const double width = tile["presentation"]["frame"][2];
        EXPECT_GT(width, 126);
        EXPECT_LT(width, 280);
    }
    EXPECT_EQ(tiles(open)[0]["frame"], json({0.0, 0.0, 280.0, 667.0}));
    EXPECT_EQ(tiles(open)[1]["frame"], json({0.0, 667.0, 280.0, 667.0}));
    EXPECT_TRUE(tiles(open)[1]["properties"]["isOpen"]);
    // The open one hears it once from every tile.
    EXPECT_THAT(calls(open),
                ElementsAre("appWillBecomeFirstResponder", "appBecomeActive", "appBecomeActive"));
    const auto& heard = open["pluginCalls"];
    EXPECT_NEAR(heard[1]["time"].get<double>() - heard[0]["time"].get<double>(), 0.8, 1.5 / 60);
}

TEST(Board, ClosesByADragOnTheTitleThatEveryTileFollows) {
    const PhoneRun run(install("test-plug-ins", "Recorder") + install("test-plug-ins", "Silent") + pull +
                           "tap 140 200\nwait 1\ntouch down 140 40\ntouch move 140 90 over 0.2\n"
                           "state dragged.json\ntouch move 140 600 over 0.3\nwait 0.2\ntouch up\nwait 1\n"
                           "state closed.json\n",
                       ownPlugInsOnly);
    const auto dragged = tiles(run.state("dragged.json")), closed = tiles(run.state("closed.json"));
    for (const json& tile : dragged) {
        EXPECT_LT(tile["frame"][2], 280.0);
        EXPECT_GT(tile["frame"][2], 126.0);
    }
    EXPECT_EQ(dragged[0]["frame"][2], dragged[1]["frame"][2]);
    for (const json& tile : closed) {
        EXPECT_EQ(tile["frame"], tile["properties"]["originalFrame"]);
        EXPECT_FALSE(tile["properties"]["isOpen"]);
        EXPECT_FALSE(tile["properties"]["isAnimating"]);
    }
    EXPECT_THAT(calls(run.state("closed.json")), Contains("appDidEnterBackground"));
}

TEST(Board, PassesTheComingAndGoingOfThePanelOn) {
    const PhoneRun run(install("test-plug-ins", "Recorder") + pull +
                           "tap 140 300\nwait 1\ntap 360 300\nwait 0.5\n" + pull + "state state.json\n",
                       ownPlugInsOnly);
    const auto heard = calls(run.state());
    ASSERT_GE(heard.size(), 2U);
    EXPECT_EQ(heard[heard.size() - 2], "velaDismissed");
    EXPECT_EQ(heard.back(), "velaInvoked");
}

TEST(Board, TypesIntoAPlugIn) {
    // "New" opens an empty note with the keyboard; its keys are the phone's own.
    const PhoneRun run(install("device/Library/Application Support/Vela/Plugins", "Notes") + pull +
                           "tap 140 300\nwait 1\ntap 224 98\nwait 1\nstate keyboard.json\n"
                           "tap 19 490\nwait 0.1\ntap 57 490\nwait 0.1\nstate typed.json\n",
                       ownPlugInsOnly);
    EXPECT_GT(run.state("keyboard.json")["keyboard"][3], 0.0);
    EXPECT_THAT(texts(leftPanel(run.state("typed.json")), "UITextView"), Contains("Qw"));
}

class FaultyPlugIn : public testing::Test {
protected:
    void failWith(const std::string& fault) {
        const fs::path storage =
            fs::path(phone.root()) / "var/mobile/Library/Vela/PluginData/org.example.Faulty";
        fs::create_directories(storage);
        std::ofstream(storage / "fault") << fault;
        std::ofstream(storage / "place") << "method";
    }
    support::ChildProcess play(const std::string& script) { return phone.play(script, ownPlugInsOnly); }

    const std::string installFaulty = install("test-plugins", "Faulty");
    const std::string open = pull + "tap 140 300\nwait 1\n";
    const std::string pullAgain = "tap 360 300\nwait 0.5\n" + pull;
    PhoneRun phone;
};

TEST_F(FaultyPlugIn, IsNamedAndNotCalledAgainAfterAnException) {
    failWith("throw");
    const auto child = play(installFaulty + open + pullAgain + pullAgain + "state state.json\n");
    ASSERT_EQ(child.exitCode, 0) << child.errors;
    const auto heard = calls(phone.state());
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "velaInvoked"), 1);
    std::vector<std::string> log = phone.state()["log"];
    EXPECT_THAT(log, Contains(HasSubstr("org.example.Faulty")));
}

TEST_F(FaultyPlugIn, IsLeftOutAfterACrashUntilItIsTurnedOnAgain) {
    failWith("segv");
    const auto crash = play(installFaulty + open + pullAgain + "state state.json\n");
    EXPECT_EQ(crash.exitCode, 3) << crash.errors;

    failWith("");
    const auto next = play(pull + "state tile.json\ntap 140 300\nwait 1\nstate notice.json\n"
                                  "tap 140 400\nwait 0.5\nstate again.json\n");
    ASSERT_EQ(next.exitCode, 0) << next.errors;
    EXPECT_THAT(texts(leftPanel(phone.state("tile.json")), "UILabel"), Contains("turned off after a crash"));
    const json notice = PhoneRun::views(leftPanel(phone.state("notice.json")), "disabledNotice").at(0);
    EXPECT_THAT(texts(notice, "UILabel"), Contains("Turn on again"));
    EXPECT_TRUE(PhoneRun::views(leftPanel(phone.state("again.json")), "disabledNotice").empty());
    EXPECT_EQ(PhoneRun::views(leftPanel(phone.state("again.json")), "FaultyView").size(), 1U);
}

/// Puts things that are no plug-ins, or hostile ones, beside a sound one.
class HostilePlugIns : public testing::Test {
protected:
    fs::path entry(const std::string& name) const { return fs::path(phone.root()) / plugInDirectory / name; }
    void writeInformation(const std::string& name, const std::string& contents) const {
        fs::create_directories(entry(name));
        std::ofstream(entry(name) / "Info.plist", std::ios::binary) << contents;
    }
    static std::string information(const std::string& identifier, const std::string& icon) {
        return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" +
               identifier + "</string><key>display_name</key><string>A</string><key>icon</key><string>" +
               icon + "</string></dict></plist>";
    }
    json pulled() {
        const auto child = phone.play(pull + "state state.json\n", ownPlugInsOnly);
        EXPECT_EQ(child.exitCode, 0) << child.errors;
        return phone.state();
    }
    PhoneRun phone;
};

TEST_F(HostilePlugIns, WithoutUsableInformationAreSkipped) {
    writeInformation("garbage", std::string("\x00\xff\xfe bplist00", 12));
    writeInformation("binary", "bplist00" + std::string(5000, '\xff'));
    writeInformation("cut", information("org.example.cut", "").substr(0, 90));
    writeInformation("array", "<plist version=\"1.0\"><array/></plist>");
    writeInformation("nameless", information("", ""));
    writeInformation("huge", information("org.example.huge", std::string(64 << 20, 'x')));
    fs::create_directories(entry("linked"));
    std::ofstream(fs::path(phone.root()) / "outside.plist") << information("org.example.linked", "");
    fs::create_symlink(fs::path(phone.root()) / "outside.plist", entry("linked") / "Info.plist");
    fs::create_directory_symlink(entry("nameless"), entry("link-to-folder"));
    std::ofstream(entry("a file")) << "no folder";
    writeInformation("sound", information("org.example.sound", ""));
    EXPECT_THAT(identifiers(pulled()), ElementsAre("org.example.sound"));
}

TEST_F(HostilePlugIns, WithStrangeNamesAreJustTiles) {
    writeInformation("two\nlines", information("org.example.a", ""));
    writeInformation("not \xff\xfe utf-8", information("org.example.b", ""));
    writeInformation("..hidden", information("../../etc/passwd", ""));
    EXPECT_THAT(identifiers(pulled()),
                testing::UnorderedElementsAre("org.example.a", "org.example.b", "../../etc/passwd"));
}

TEST_F(HostilePlugIns, WithoutAUsableIconShowNone) {
    const fs::path folder = fs::path(phone.root()) / "icons";
    fs::create_directories(folder / "directory.png");
    std::ofstream(folder / "text.png") << "this is no picture";
    // A PNG's head that promises 30,000 by 30,000 pixels.
    std::ofstream(folder / "vast.png", std::ios::binary)
        << std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x75\x30\0\0\x75\x30\x08\x06\0\0\0", 29);
    for (const char* name : {"missing", "directory", "text", "vast"})
        writeInformation(
            name, information(std::string("org.example.") + name, "/icons/" + std::string(name) + ".png"));
    writeInformation("outside", information("org.example.outside", "/icons/../../../../../etc/hostname"));
    const json state = pulled();
    ASSERT_EQ(tiles(state).size(), 5U);
    for (const json& tile : tiles(state))
        EXPECT_EQ(PhoneRun::views(PhoneRun::views(tile, "velaIconView").at(0), "UIImageView").at(0)["image"],
                  nullptr)
            << tile["properties"]["identifier"];
}

} // namespace
