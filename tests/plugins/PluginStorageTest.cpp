#include "tests/plugins/PluginTest.h"

namespace plugins {
namespace {

class PluginStorageTest : public PluginTest {};

TEST_F(PluginStorageTest, KeepsWholeFilesByName) {
    PluginStorage storage("org.example.a");
    EXPECT_EQ(storage.read("x"), std::nullopt);
    const std::string bytes("\0\xff text\n", 8);
    EXPECT_TRUE(storage.write("x", bytes));
    EXPECT_TRUE(storage.write("a b", ""));
    EXPECT_EQ(PluginStorage("org.example.a").read("x"), bytes);
    EXPECT_EQ(storage.read("a b"), "");
    EXPECT_THAT(storage.names(), testing::ElementsAre("a b", "x"));
    EXPECT_TRUE(storage.remove("x"));
    EXPECT_FALSE(storage.remove("x"));
    EXPECT_EQ(storage.read("x"), std::nullopt);
}

TEST_F(PluginStorageTest, TakesPlainNamesOnly) {
    PluginStorage storage("org.example.a");
    for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("../x"),
                                    std::string("a/b"), std::string("/x"), std::string(".hidden"),
                                    std::string("a\0b", 3), std::string("a\nb"), std::string(201, 'x')}) {
        EXPECT_FALSE(storage.write(name, "text"));
        EXPECT_EQ(storage.read(name), std::nullopt);
        EXPECT_FALSE(storage.remove(name));
    }
    EXPECT_THAT(storage.names(), testing::IsEmpty());
}

TEST_F(PluginStorageTest, RefusesWhatIsTooLarge) {
    PluginStorage storage("org.example.a");
    const std::string large(PluginStorage::largestFile, 'x');
    EXPECT_TRUE(storage.write("x", large));
    EXPECT_FALSE(storage.write("x", large + "y"));
    EXPECT_EQ(storage.read("x")->size(), large.size());
}

TEST_F(PluginStorageTest, PlugInsDoNotMeetWhateverTheyAreCalled) {
    EXPECT_TRUE(PluginStorage("a").write("x", "of a"));
    EXPECT_EQ(PluginStorage("b").read("x"), std::nullopt);
    EXPECT_TRUE(PluginStorage("..").write("x", "of dots"));
    EXPECT_TRUE(PluginStorage("a/../..").write("x", "of a path"));
    EXPECT_EQ(PluginStorage("a").read("x"), "of a");
    EXPECT_EQ(PluginStorage("..").read("x"), "of dots");
    EXPECT_FALSE(files().fileExists("/var/mobile/Library/Vela/x"));
    EXPECT_NE(PluginStorage::directoryFor("a/b"), PluginStorage::directoryFor("a%2fb"));
}

TEST_F(PluginStorageTest, DoesNotFollowASymbolicLink) {
    PluginStorage storage("org.example.a");
    ASSERT_TRUE(storage.write("x", "text"));
    writeFile(directory() / "secret", "secret");
    std::filesystem::create_symlink(directory() / "secret",
                                    *files().realPath(PluginStorage::directoryFor("org.example.a")) / "link");
    EXPECT_EQ(storage.read("link"), std::nullopt);
}

} // namespace
} // namespace plugins
