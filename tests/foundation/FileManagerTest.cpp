#include "platform/foundation/FileManager.h"

#include "tests/support/TemporaryDirectory.h"

#include <fstream>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace foundation {
namespace {

namespace fs = std::filesystem;

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

class FileManagerTest : public testing::Test {
protected:
    FileManagerTest() {
        fs::create_directories(outside());
        writeReal(outside() / "secret", "secret");
        EXPECT_TRUE(files.setDeviceRoot(root()));
        EXPECT_TRUE(files.createDirectories("/var/mobile"));
    }

    fs::path root() const { return directory.path() / "root"; }
    fs::path outside() const { return directory.path() / "outside"; }

    static void writeReal(const fs::path& path, std::string_view text) { std::ofstream(path) << text; }
    std::string read(const std::string& path) const {
        const auto bytes = files.read(path);
        return bytes ? std::string(bytes->begin(), bytes->end()) : "(nothing)";
    }
    static std::size_t realEntries(const fs::path& path) {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(path), fs::directory_iterator()));
    }

    tests::TemporaryDirectory directory;
    FileManager files;
};

TEST_F(FileManagerTest, MakesTheRootWithItsParents) {
    FileManager other;
    EXPECT_TRUE(other.setDeviceRoot(directory.path() / "a" / "b"));
    EXPECT_TRUE(other.directoryExists("/"));
    writeReal(directory.path() / "file", "");
    EXPECT_FALSE(other.setDeviceRoot(directory.path() / "file"));
    EXPECT_EQ(other.deviceRoot(), directory.path() / "a" / "b");
}

TEST_F(FileManagerTest, KnowsNoFilesWithoutARoot) {
    const FileManager rootless;
    EXPECT_FALSE(rootless.fileExists("/"));
    EXPECT_FALSE(rootless.read("/etc/hostname"));
    EXPECT_FALSE(rootless.writeAtomically("/file", bytesOf("x")));
    EXPECT_FALSE(rootless.createDirectories("/a"));
    EXPECT_FALSE(rootless.realPath("/a"));
}

TEST_F(FileManagerTest, ReadsWhatItWrote) {
    EXPECT_TRUE(files.writeAtomically("/var/mobile/file", bytesOf("one")));
    EXPECT_EQ(read("/var/mobile/file"), "one");
    EXPECT_TRUE(files.writeAtomically("/var/mobile/file", bytesOf("")));
    EXPECT_EQ(read("/var/mobile/file"), "");
    EXPECT_TRUE(files.fileExists("//var/./mobile//file"));
    EXPECT_FALSE(files.directoryExists("/var/mobile/file"));
    EXPECT_TRUE(files.removeFile("/var/mobile/file"));
    EXPECT_FALSE(files.removeFile("/var/mobile/file"));
    EXPECT_FALSE(files.fileExists("/var/mobile/file"));
}

TEST_F(FileManagerTest, ReadsNoFileBeyondTheLimit) {
    ASSERT_TRUE(files.writeAtomically("/file", bytesOf("12345")));
    EXPECT_TRUE(files.read("/file", 5));
    EXPECT_FALSE(files.read("/file", 4));
    EXPECT_FALSE(files.read("/file", 0));
    fs::resize_file(root() / "file", std::uintmax_t{1} << 40); // a terabyte with nothing in it
    EXPECT_FALSE(files.read("/file"));
    EXPECT_FALSE(files.readDictionary("/file"));
}

TEST_F(FileManagerTest, ReadsRegularFilesOnly) {
    ASSERT_EQ(mkfifo((root() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(files.read("/pipe")); // and does not wait for a writer
    EXPECT_FALSE(files.read("/var"));
    EXPECT_FALSE(files.read("/"));
    EXPECT_FALSE(files.read("/missing"));
}

TEST_F(FileManagerTest, MakesDirectories) {
    EXPECT_TRUE(files.createDirectory("/var/a"));
    EXPECT_FALSE(files.createDirectory("/var/a"));
    EXPECT_FALSE(files.createDirectory("/var/b/c"));
    EXPECT_TRUE(files.createDirectories("/var/b/c/d"));
    EXPECT_TRUE(files.createDirectories("/var/b/c/d"));
    EXPECT_TRUE(files.directoryExists("/var/b/c/d"));
    ASSERT_TRUE(files.writeAtomically("/var/file", bytesOf("x")));
    EXPECT_FALSE(files.createDirectories("/var/file"));
    EXPECT_FALSE(files.createDirectories("/var/file/a"));
    EXPECT_FALSE(files.createDirectory("/"));
}

TEST_F(FileManagerTest, FollowsNoWayUp) {
    for (const std::string path :
         {"/../outside/secret", "/var/../../outside/secret", "/var/../../../etc/passwd", "../outside/secret",
          "/var/mobile/..", "/..", ".."}) {
        EXPECT_FALSE(files.fileExists(path)) << path;
        EXPECT_FALSE(files.directoryExists(path)) << path;
        EXPECT_FALSE(files.read(path)) << path;
        EXPECT_FALSE(files.contentsOfDirectory(path)) << path;
        EXPECT_FALSE(files.writeAtomically(path, bytesOf("x"))) << path;
        EXPECT_FALSE(files.createDirectories(path + "/made")) << path;
        EXPECT_FALSE(files.removeFile(path)) << path;
        EXPECT_FALSE(files.realPath(path)) << path;
    }
    EXPECT_TRUE(files.writeAtomically("/var/..name", bytesOf("x"))); // a name like any other
}

TEST_F(FileManagerTest, TakesNoPathWithANulForAShorterOne) {
    ASSERT_TRUE(files.writeAtomically("/file", bytesOf("x")));
    const std::string path("/file\0.png", 10);
    EXPECT_FALSE(files.fileExists(path));
    EXPECT_FALSE(files.read(path));
    EXPECT_FALSE(files.removeFile(path));
    EXPECT_FALSE(files.writeAtomically(path, bytesOf("y")));
    EXPECT_FALSE(files.realPath(path));
    EXPECT_EQ(read("/file"), "x");
}

TEST_F(FileManagerTest, TakesSymbolicLinksForMissing) {
    fs::create_directory_symlink(outside(), root() / "var/link");
    fs::create_symlink(outside() / "secret", root() / "var/secret");
    ASSERT_TRUE(files.writeAtomically("/var/mobile/file", bytesOf("inside")));
    fs::create_directory_symlink(root() / "var/mobile", root() / "var/inner");
    for (const std::string path :
         {"/var/link/secret", "/var/secret", "/var/inner/file", "/var/link", "/var/inner"}) {
        EXPECT_FALSE(files.fileExists(path)) << path;
        EXPECT_FALSE(files.directoryExists(path)) << path;
        EXPECT_FALSE(files.read(path)) << path;
        EXPECT_FALSE(files.contentsOfDirectory(path)) << path;
        EXPECT_FALSE(files.removeFile(path)) << path;
        EXPECT_FALSE(files.realPath(path)) << path;
    }
    EXPECT_FALSE(files.writeAtomically("/var/link/new", bytesOf("x")));
    EXPECT_FALSE(files.createDirectory("/var/link/new"));
    EXPECT_FALSE(files.createDirectories("/var/link/new/newer"));
    EXPECT_FALSE(files.createDirectories("/var/link"));
    EXPECT_EQ(realEntries(outside()), 1u);
}

TEST_F(FileManagerTest, WritesInPlaceOfALinkAndNotThroughIt) {
    fs::create_symlink(outside() / "secret", root() / "var/file");
    EXPECT_TRUE(files.writeAtomically("/var/file", bytesOf("mine")));
    EXPECT_EQ(read("/var/file"), "mine");
    std::string secret;
    std::ifstream(outside() / "secret") >> secret;
    EXPECT_EQ(secret, "secret");
}

TEST_F(FileManagerTest, KnowsTheRealPathOfFilesThatAreYetToCome) {
    EXPECT_EQ(files.realPath("/var/mobile/new.png"), root() / "var/mobile/new.png");
    EXPECT_EQ(files.realPath("/none/new.png"), root() / "none/new.png");
    EXPECT_EQ(files.realPath("/"), root());
}

TEST_F(FileManagerTest, KeepsNamesThatLookLikePathsInsideTheirDirectory) {
    // What a song or a plug-in calls itself becomes part of a path by being joined to one.
    const std::string title = "../../../outside/secret";
    EXPECT_FALSE(files.writeAtomically("/var/mobile/" + title, bytesOf("x")));
    EXPECT_FALSE(files.writeAtomically("/var/mobile/" + std::string(300, 'a'), bytesOf("x")));
    EXPECT_FALSE(files.fileExists("/var/mobile/" + std::string(1'000'000, 'a')));
    std::string deep = "/var/mobile";
    for (int level = 0; level < 10'000; ++level)
        deep += "/a";
    EXPECT_FALSE(files.fileExists(deep));
    EXPECT_TRUE(files.writeAtomically("/var/mobile/ \\*?\"<>|\n\xFF", bytesOf("odd")));
    EXPECT_EQ(read("/var/mobile/ \\*?\"<>|\n\xFF"), "odd");
}

TEST_F(FileManagerTest, ListsADirectoryInTheFileSystemsOwnOrder) {
    for (const char* name : {"z", "a", "m", ".hidden", "b"})
        ASSERT_TRUE(files.writeAtomically(std::string("/var/mobile/") + name, bytesOf("x")));
    ASSERT_TRUE(files.createDirectory("/var/mobile/directory"));
    std::vector<std::string> expected;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir((root() / "var/mobile").c_str()), closedir);
    while (const dirent* entry = readdir(listing.get()))
        if (std::string_view(entry->d_name) != "." && std::string_view(entry->d_name) != "..")
            expected.emplace_back(entry->d_name);
    EXPECT_EQ(expected.size(), 6u);
    EXPECT_EQ(files.contentsOfDirectory("/var/mobile"), expected);
    EXPECT_EQ(files.contentsOfDirectory("/var/mobile/directory"), std::vector<std::string>{});
    EXPECT_FALSE(files.contentsOfDirectory("/var/mobile/z"));
    EXPECT_FALSE(files.contentsOfDirectory("/missing"));
    EXPECT_TRUE(files.contentsOfDirectory("/"));
}

TEST_F(FileManagerTest, LeavesNothingBehindWhenAWriteFails) {
    ASSERT_TRUE(files.createDirectory("/var/mobile/directory"));
    EXPECT_FALSE(files.writeAtomically("/var/mobile/directory", bytesOf("x")));
    EXPECT_FALSE(files.writeAtomically("/var/mobile/missing/file", bytesOf("x")));
    EXPECT_FALSE(files.writeAtomically("/", bytesOf("x")));
    EXPECT_EQ(realEntries(root() / "var/mobile"), 1u);
    EXPECT_EQ(realEntries(root()), 1u);
}

TEST_F(FileManagerTest, ReadsDictionariesAndNothingElseAsSuch) {
    const PropertyList::Dictionary value{{"Enable", true}, {"Grabber height", 0.5}};
    EXPECT_TRUE(files.writeDictionaryAtomically("/settings.plist", value));
    EXPECT_EQ(files.readDictionary("/settings.plist"), value);
    writeReal(root() / "array.plist", "<plist><array/></plist>");
    writeReal(root() / "text.plist", "no list");
    EXPECT_FALSE(files.readDictionary("/array.plist"));
    EXPECT_FALSE(files.readDictionary("/text.plist"));
    EXPECT_FALSE(files.readDictionary("/missing.plist"));
}

TEST_F(FileManagerTest, WritesNoDictionaryThatIsTooLargeToBeReadBack) {
    const PropertyList::Dictionary small{{"text", "small"}};
    ASSERT_TRUE(files.writeDictionaryAtomically("/settings.plist", small));
    EXPECT_FALSE(
        files.writeDictionaryAtomically("/settings.plist", {{"text", std::string(64 * 1024 * 1024, 'x')}}));
    EXPECT_EQ(files.readDictionary("/settings.plist"), small);
}

} // namespace
} // namespace foundation
