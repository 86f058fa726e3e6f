#include "tests/plugins/PluginTest.h"

namespace plugins {
namespace {

class DisabledPluginsTest : public PluginTest {
protected:
    void leaveNote(const std::string& contents) const {
        files().createDirectories(stateDirectory);
        writeFile(directory() / ("root" + std::string(crashNotePath)), contents);
    }
};

TEST_F(DisabledPluginsTest, NoPlugInIsDisabledAtFirst) {
    EXPECT_FALSE(isDisabled("org.example.Bare"));
    EXPECT_EQ(takeNoteOfCrash(), std::nullopt);
    EXPECT_TRUE(enable("org.example.Bare"));
}

TEST_F(DisabledPluginsTest, ANoteDisablesItsPlugInOnce) {
    install("Bare");
    leaveNote("org.example.Bare");
    EXPECT_EQ(takeNoteOfCrash(), "org.example.Bare");
    EXPECT_EQ(takeNoteOfCrash(), std::nullopt);
    EXPECT_TRUE(isDisabled("org.example.Bare"));
    EXPECT_FALSE(isDisabled("org.example.Other"));
    EXPECT_FALSE(Bundle::open(pathOf("Bare")));
}

TEST_F(DisabledPluginsTest, AnEnabledPlugInOpensAgain) {
    install("Bare");
    leaveNote("org.example.Bare");
    takeNoteOfCrash();
    leaveNote("org.example.Other");
    takeNoteOfCrash();
    EXPECT_TRUE(enable("org.example.Bare"));
    EXPECT_FALSE(isDisabled("org.example.Bare"));
    EXPECT_TRUE(isDisabled("org.example.Other"));
    EXPECT_TRUE(Bundle::open(pathOf("Bare")));
}

TEST_F(DisabledPluginsTest, AnEmptyOrHugeNoteDisablesNobody) {
    leaveNote("");
    EXPECT_EQ(takeNoteOfCrash(), std::nullopt);
    leaveNote(std::string(100'000, 'x'));
    EXPECT_EQ(takeNoteOfCrash(), std::nullopt);
}

TEST_F(DisabledPluginsTest, AListThatCannotBeReadIsAnEmptyOne) {
    files().createDirectories(stateDirectory);
    writeFile(directory() / ("root" + std::string(disabledListPath)), "garbage");
    EXPECT_FALSE(isDisabled("org.example.Bare"));
    leaveNote("org.example.Bare");
    EXPECT_EQ(takeNoteOfCrash(), "org.example.Bare");
    EXPECT_TRUE(isDisabled("org.example.Bare"));
}

} // namespace
} // namespace plugins
