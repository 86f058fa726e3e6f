#include "hosts/script/ScriptParser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace script {
namespace {

Script parse(std::string_view text) {
    return parseScript(text, "test.phone");
}

/// The one command of a text.
template <class T>
T only(std::string_view text) {
    const Script script = parse(text);
    EXPECT_EQ(script.commands.size(), 1u) << text;
    return std::get<T>(script.commands.at(0).action);
}

/// The message that parsing ends with; empty when it does not fail.
std::string errorOf(std::string_view text) {
    try {
        parse(text);
    } catch (const ScriptError& error) {
        return error.what();
    }
    return "";
}

TEST(Script, SkipsEmptyLinesAndCommentsAndKeepsLineNumbers) {
    const Script script = parse("# a comment\n\n  \t\nwait 1 # behind a command\r\nlock");
    ASSERT_EQ(script.commands.size(), 2u);
    EXPECT_EQ(script.commands[0].line, 4);
    EXPECT_EQ(script.commands[1].line, 5);
    EXPECT_EQ(std::get<Wait>(script.commands[0].action).seconds, 1);
    EXPECT_TRUE(std::holds_alternative<Lock>(script.commands[1].action));
}

TEST(Script, ReadsTouches) {
    const Script script =
        parse("touch down 370 300.5\ntouch move -5 300 over 0.25\ntouch move 4 5\ntouch up\n");
    ASSERT_EQ(script.commands.size(), 4u);
    const auto down = std::get<TouchDown>(script.commands[0].action);
    EXPECT_EQ(down.finger, 1);
    EXPECT_EQ(down.to, toolkit::Point(370, 300.5));
    const auto move = std::get<TouchMove>(script.commands[1].action);
    EXPECT_EQ(move.to, toolkit::Point(-5, 300));
    EXPECT_EQ(move.seconds, 0.25);
    EXPECT_EQ(std::get<TouchMove>(script.commands[2].action).seconds, std::nullopt);
    EXPECT_EQ(std::get<TouchUp>(script.commands[3].action).finger, 1);
}

TEST(Script, ReadsSeveralFingers) {
    const Script script = parse("touch down 1 2\ntouch down 3 4 finger 2\ntouch move 5 6 over 1 finger 2\n"
                                "touch up finger 2\ntouch up");
    EXPECT_EQ(std::get<TouchDown>(script.commands[1].action).finger, 2);
    EXPECT_EQ(std::get<TouchMove>(script.commands[2].action).finger, 2);
    EXPECT_EQ(std::get<TouchUp>(script.commands[3].action).finger, 2);
}

TEST(Script, RefusesToMoveOrLiftAFingerThatIsNotDown) {
    EXPECT_EQ(errorOf("touch move 1 2"), "test.phone:1: finger 1 is not down");
    EXPECT_EQ(errorOf("touch up"), "test.phone:1: finger 1 is not down");
    EXPECT_EQ(errorOf("touch down 1 2\ntouch up finger 2"), "test.phone:2: finger 2 is not down");
    EXPECT_EQ(errorOf("touch down 1 2\ntouch down 1 2"), "test.phone:2: finger 1 is down already");
    EXPECT_EQ(errorOf("touch down 1 2\ntouch up\ntouch down 1 2"), "");
}

TEST(Script, ReadsButtonsApplicationsAndOrientations) {
    EXPECT_EQ(only<Press>("press home").button, Button::Home);
    EXPECT_EQ(only<Press>("press home-double").button, Button::HomeDouble);
    EXPECT_EQ(only<Press>("press lock").button, Button::Lock);
    EXPECT_EQ(only<Press>("press volume-up").button, Button::VolumeUp);
    EXPECT_EQ(only<Press>("press volume-down").button, Button::VolumeDown);
    EXPECT_EQ(only<Open>("open com.apple.mobilenotes").bundleIdentifier, "com.apple.mobilenotes");
    EXPECT_EQ(only<Rotate>("rotate 0").orientation, toolkit::DeviceOrientation::Unknown);
    EXPECT_EQ(only<Rotate>("rotate 6").orientation, toolkit::DeviceOrientation::FaceDown);
    EXPECT_TRUE(only<Keyboard>("keyboard show").shown);
    EXPECT_FALSE(only<Keyboard>("keyboard hide").shown);
    EXPECT_EQ(only<Tap>("tap 10 20").at, toolkit::Point(10, 20));
}

TEST(Script, ReadsPreferencesOfEveryType) {
    EXPECT_EQ(only<SetPreference>("set Enable bool true").value, foundation::PropertyList(true));
    EXPECT_EQ(only<SetPreference>("set Enable bool 0").value, foundation::PropertyList(false));
    EXPECT_EQ(only<SetPreference>("set n number 3").value, foundation::PropertyList(3));
    EXPECT_EQ(only<SetPreference>("set n number 0.85").value, foundation::PropertyList(0.85));
    EXPECT_EQ(only<SetPreference>("set n number -9223372036854775808").value,
              foundation::PropertyList(std::int64_t{-9223372036854775807 - 1}));
    EXPECT_EQ(only<SetPreference>("set Blur string auto").value, foundation::PropertyList("auto"));
    EXPECT_TRUE(only<SetPreference>("set Blur remove").value.isNil());
}

TEST(Script, ReadsQuotedWordsWithBlanksHashesAndEscapes) {
    const auto set =
        only<SetPreference>("set \"Grabber height\" string \"half # \\\"top\\\" \\\\ \\n\" # rest");
    EXPECT_EQ(set.key, "Grabber height");
    EXPECT_EQ(*set.value.string(), "half # \"top\" \\ \n");
    EXPECT_EQ(*only<SetPreference>("set k string \"\"").value.string(), "");
    EXPECT_EQ(only<Type>("type \"two words\"").text, "two words");
}

TEST(Script, ReadsMusic) {
    EXPECT_EQ(only<AddMusic>("music add /some/where").path, "/some/where");
    EXPECT_EQ(only<Play>("play \"Paper Boats\"").title, "Paper Boats");
    EXPECT_EQ(only<PressPlayer>("play next").button, PlayerButton::Next);
    EXPECT_EQ(only<PressPlayer>("play previous").button, PlayerButton::Previous);
    EXPECT_EQ(only<PressPlayer>("play pause").button, PlayerButton::Pause);
    EXPECT_EQ(only<PressPlayer>("play resume").button, PlayerButton::Resume);
    EXPECT_EQ(only<Seek>("seek 12.5").seconds, 12.5);
    EXPECT_EQ(only<Elapsed>("elapsed 3").seconds, 3);
    EXPECT_EQ(only<VolumeSlider>("volume-slider begin").moment, SliderMoment::Begin);
    EXPECT_EQ(only<VolumeSlider>("volume-slider end").moment, SliderMoment::End);
    for (const char* wrong : {"music", "music add", "music remove x", "play", "play a b", "seek -1", "seek x",
                              "elapsed", "volume-slider", "volume-slider up", "radio", "radio a b c"})
        EXPECT_NE(errorOf(wrong), "") << wrong;
}

TEST(Script, ReadsRadioInOneWordOrTwo) {
    const auto heard = [](std::string_view text) {
        const auto radio = only<Radio>(text);
        return radio.title + "/" + radio.artist;
    };
    EXPECT_EQ(heard("radio \"Rain|Mira Vale\""), "Rain/Mira Vale");
    EXPECT_EQ(heard("radio Rain \"Mira Vale\""), "Rain/Mira Vale");
    EXPECT_EQ(heard("radio Rain"), "Rain/");
    EXPECT_EQ(heard("radio |"), "/");
    EXPECT_EQ(heard("radio \"\" Mira"), "/Mira");
}

TEST(Script, ReadsWhatPlaysNow) {
    EXPECT_TRUE(only<NowPlaying>("nowplaying none").info.isNil());
    const auto info = only<NowPlaying>("nowplaying title=\"Paper Boats\" \"artist=Mira Vale\" album= "
                                       "kMRMediaRemoteNowPlayingInfoDuration=200.5 uniqueIdentifier=7")
                          .info;
    EXPECT_EQ(info["kMRMediaRemoteNowPlayingInfoTitle"], foundation::PropertyList("Paper Boats"));
    EXPECT_EQ(info["kMRMediaRemoteNowPlayingInfoArtist"], foundation::PropertyList("Mira Vale"));
    EXPECT_EQ(info["kMRMediaRemoteNowPlayingInfoAlbum"], foundation::PropertyList(""));
    EXPECT_EQ(info["kMRMediaRemoteNowPlayingInfoDuration"], foundation::PropertyList(200.5));
    EXPECT_EQ(info["kMRMediaRemoteNowPlayingInfoUniqueIdentifier"],
              foundation::PropertyList(std::int64_t{7}));
    EXPECT_EQ(info.dictionary()->size(), 5u);
    EXPECT_EQ(only<NowPlaying>("nowplaying duration=long").info["kMRMediaRemoteNowPlayingInfoDuration"],
              foundation::PropertyList("long"));
    EXPECT_EQ(only<NowPlaying>("nowplaying title=a=b").info["kMRMediaRemoteNowPlayingInfoTitle"],
              foundation::PropertyList("a=b"));
    for (const char* wrong : {"nowplaying", "nowplaying title", "nowplaying =x", "nowplaying none title=a",
                              "nowplaying title=\"a"})
        EXPECT_NE(errorOf(wrong), "") << wrong;
}

TEST(Script, RefusesBrokenQuotes) {
    EXPECT_EQ(errorOf("type \"open"), "test.phone:1: a quote is not closed");
    EXPECT_EQ(errorOf("type \"open\\"), "test.phone:1: a quote is not closed");
    EXPECT_EQ(errorOf("type \"a\"b"), "test.phone:1: a closing quote is followed by more of the word");
    EXPECT_EQ(errorOf("type a\"b\""), "test.phone:1: a quote stands within a word");
    EXPECT_EQ(errorOf("type \"\\t\""),
              "test.phone:1: a backslash is followed by something other than \", \\ or n");
}

TEST(Script, TakesOnlyWholeFiniteNumbers) {
    for (const char* number :
         {"1x", "x", "0x10", "nan", "inf", "-inf", "1e999", "+1", "1,5", "\"\"", "--1"}) {
        EXPECT_NE(errorOf(std::string("wait ") + number), "") << number;
        EXPECT_NE(errorOf(std::string("tap 1 ") + number), "") << number;
        EXPECT_NE(errorOf(std::string("set k number ") + number), "") << number;
    }
    EXPECT_EQ(only<Wait>("wait 1e-3").seconds, 1e-3);
}

TEST(Script, BoundsNumbers) {
    EXPECT_EQ(errorOf("wait -1"), "test.phone:1: the seconds -1 is not between 0 and 86400");
    EXPECT_NE(errorOf("wait 86401"), "");
    EXPECT_NE(errorOf("touch down 1e6 0"), "");
    EXPECT_NE(errorOf("touch down 1 1\ntouch move 1 1 over 3601"), "");
    EXPECT_EQ(errorOf("rotate 7"), "test.phone:1: the orientation 7 is not between 0 and 6");
    EXPECT_EQ(errorOf("rotate 1.5"), "test.phone:1: the orientation is not a whole number");
    EXPECT_NE(errorOf("touch down 1 1 finger 0"), "");
    EXPECT_NE(errorOf("touch down 1 1 finger 11"), "");
}

TEST(Script, LetsFingersLeaveTheScreen) {
    EXPECT_EQ(only<Tap>("tap -40 5000").at, toolkit::Point(-40, 5000));
}

TEST(Script, SaysWhatIsMissingOrTooMuch) {
    EXPECT_EQ(errorOf("wait"), "test.phone:1: wait lacks the seconds");
    EXPECT_EQ(errorOf("tap 1"), "test.phone:1: tap lacks the y coordinate");
    EXPECT_EQ(errorOf("wait 1 2"), "test.phone:1: \"2\" is one word too many for wait");
    EXPECT_EQ(errorOf("lock now"), "test.phone:1: \"now\" is one word too many for lock");
    EXPECT_EQ(errorOf("\n\njump 1"), "test.phone:3: \"jump\" is no command");
    EXPECT_EQ(errorOf("keyboard on"), "test.phone:1: \"on\" is none of hide, show");
    EXPECT_EQ(errorOf("set k bool maybe"), "test.phone:1: \"maybe\" is neither true nor false");
    EXPECT_EQ(errorOf("set k date 1"), "test.phone:1: \"date\" is no type: bool, number, string or remove");
    EXPECT_EQ(errorOf("set \"\" bool 1"), "test.phone:1: the key is empty");
}

TEST(Script, KeepsFilesInTheOutputDirectory) {
    EXPECT_EQ(only<Shot>("shot one.png").fileName, "one.png");
    EXPECT_EQ(only<State>("state \"two words.json\"").fileName, "two words.json");
    for (const char* name :
         {"../x.png", "/tmp/x.png", "a/b.png", ".png", ".hidden.png", "x.jpg", "x", "\"\""})
        EXPECT_NE(errorOf(std::string("shot ") + name), "") << name;
    EXPECT_NE(errorOf("shot " + std::string(300, 'a') + ".png"), "");
    EXPECT_NE(errorOf("state x.png"), "");
}

TEST(Script, RefusesWhatIsNotText) {
    EXPECT_EQ(errorOf("wait 1\ntype \"\xff\xfe\""), "test.phone:2: the line is not UTF-8 text");
    EXPECT_EQ(errorOf(std::string_view("wait\0 1", 7)), "test.phone:1: the line is not UTF-8 text");
    EXPECT_NE(errorOf("set \"a\\nb\" bool 1"), "");
}

TEST(Script, RefusesAnOversizedScript) {
    EXPECT_EQ(errorOf(std::string(5 * 1024 * 1024, '\n')), "test.phone: the script is larger than 4 MiB");
}

TEST(Script, SaysWhichFileCannotBeRead) {
    try {
        readScript("/nowhere/at-all.phone");
        FAIL() << "a missing file was read";
    } catch (const ScriptError& error) {
        EXPECT_STREQ(error.what(), "/nowhere/at-all.phone: there is no such script");
    }
    EXPECT_THROW(readScript("/"), ScriptError);
}

TEST(Script, ParsesEveryScriptOfTheProject) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_SOURCE_DIR "/tests/scripts")) {
        if (entry.path().extension() != ".phone")
            continue;
        EXPECT_NO_THROW(readScript(entry.path())) << entry.path();
        ++count;
    }
    EXPECT_GT(count, 0);
}

} // namespace
} // namespace script
