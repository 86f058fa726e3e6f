#include "tests/plugins/PluginTest.h"

#include <elf.h>
#include <sys/stat.h>

namespace plugins {
namespace {

using foundation::PropertyList;

class BundleTest : public PluginTest {
protected:
    BundleTest() { unsetenv(trace); }
    static bool codeRan() { return getenv(trace) != nullptr; }

    /// Overwrites bytes of an installed executable.
    void patchExecutable(const std::string& name, std::size_t offset, char byte) const {
        std::fstream stream(realPathOf(name) / (name + ".so"),
                            std::ios::binary | std::ios::in | std::ios::out);
        stream.seekp(static_cast<std::streamoff>(offset));
        stream.put(byte);
    }

    /// Where that of an executable ends which the loader maps.
    static std::uintmax_t endOfMappedPart(const std::filesystem::path& executable) {
        std::ifstream stream(executable, std::ios::binary);
        Elf64_Ehdr header{};
        stream.read(reinterpret_cast<char*>(&header), sizeof header);
        std::uintmax_t end = 0;
        for (int i = 0; i < header.e_phnum; ++i) {
            Elf64_Phdr part{};
            stream.seekg(static_cast<std::streamoff>(header.e_phoff + i * sizeof part));
            stream.read(reinterpret_cast<char*>(&part), sizeof part);
            if (part.p_type == PT_LOAD)
                end = std::max<std::uintmax_t>(end, part.p_offset + part.p_filesz);
        }
        return end;
    }

    static constexpr const char* trace = "VELA_TEST_PLUGIN_CODE_RAN";
};

TEST_F(BundleTest, OpensWithOrWithoutASlashAtTheEnd) {
    install("Bare");
    ASSERT_TRUE(Bundle::open(pathOf("Bare")));
    EXPECT_TRUE(Bundle::open(pathOf("Bare") + "/"));
    EXPECT_EQ(Bundle::open(pathOf("Bare"))->identifier(), "org.example.Bare");
}

TEST_F(BundleTest, RunsThePlugInsCodeWhenItOpens) {
    install("Announcing");
    EXPECT_TRUE(Bundle::open(pathOf("Announcing")));
    EXPECT_TRUE(codeRan()); // what makes the tests below worth something
}

TEST_F(BundleTest, RunsNothingOfAPlugInForAnotherNumberOfTheContract) {
    install("Announcing");
    for (const PropertyList& number :
         {PropertyList(), PropertyList(0), PropertyList(2), PropertyList(-1), PropertyList("1"),
          PropertyList(1.0), PropertyList(true), PropertyList(std::int64_t{1} << 32 | 1)}) {
        // A library that was once loaded stays; each try needs a file of its own.
        setInformation("Announcing", "VelaPluginABI", number);
        EXPECT_FALSE(Bundle::open(pathOf("Announcing")));
        EXPECT_FALSE(codeRan());
    }
}

TEST_F(BundleTest, DoesNotOpenWhatIsNoBundle) {
    EXPECT_FALSE(Bundle::open(pathOf("Missing")));
    EXPECT_FALSE(Bundle::open(""));
    writeFile(realPathOf("File"), "a file");
    EXPECT_FALSE(Bundle::open(pathOf("File")));
    std::filesystem::create_directory(realPathOf("Empty"));
    EXPECT_FALSE(Bundle::open(pathOf("Empty")));
}

TEST_F(BundleTest, DoesNotOpenOnAPropertyListThatCannotBeRead) {
    install("Bare");
    const auto information = realPathOf("Bare") / "Info.plist";
    std::string deep = "<plist version=\"1.0\">";
    for (int level = 0; level < 100'000; ++level)
        deep += "<array>";
    for (const std::string& contents :
         {std::string(), std::string("garbage"), std::string("bplist00\xff\xff\xff", 11),
          std::string(4096, '\0'), std::string("<plist version=\"1.0\"><array/></plist>"), deep}) {
        writeFile(information, contents);
        EXPECT_FALSE(Bundle::open(pathOf("Bare")));
    }
}

TEST_F(BundleTest, DoesNotReadAHugePropertyList) {
    install("Bare");
    const auto information = realPathOf("Bare") / "Info.plist";
    std::filesystem::resize_file(information, std::uintmax_t{1} << 40); // takes no room on the disk
    EXPECT_FALSE(Bundle::open(pathOf("Bare")));
}

TEST_F(BundleTest, DoesNotFollowASymbolicLink) {
    install("Bare");
    std::filesystem::rename(realPathOf("Bare") / "Info.plist", directory() / "elsewhere.plist");
    std::filesystem::create_symlink(directory() / "elsewhere.plist", realPathOf("Bare") / "Info.plist");
    EXPECT_FALSE(Bundle::open(pathOf("Bare")));

    install("Announcing");
    std::filesystem::rename(realPathOf("Announcing") / "Announcing.so", directory() / "elsewhere.so");
    std::filesystem::create_symlink(directory() / "elsewhere.so", realPathOf("Announcing") / "Announcing.so");
    EXPECT_FALSE(Bundle::open(pathOf("Announcing")));
    EXPECT_FALSE(codeRan());
}

TEST_F(BundleTest, DoesNotOpenAnExecutableOutsideOfTheBundle) {
    install("Announcing");
    install("Bare");
    const auto executable = realPathOf("Announcing") / "Announcing.so";
    std::filesystem::copy_file(executable, directory() / "root/Outside.so");
    for (const std::string& path :
         {std::string("../Announcing.bundle/Announcing.so"), std::string("../../../../../Outside.so"),
          std::string("/Outside.so"),
          std::string("/Library/Application Support/Vela/Plugins/Announcing.bundle/Announcing.so"),
          executable.string(), std::string("x/../../Announcing.bundle/Announcing.so"), std::string(""),
          std::string("."), std::string(300, 'x')}) {
        setInformation("Bare", "CFBundleExecutable", path);
        EXPECT_FALSE(Bundle::open(pathOf("Bare"))) << path;
    }
    setInformation("Bare", "CFBundleExecutable", {});
    EXPECT_FALSE(Bundle::open(pathOf("Bare")));
    EXPECT_FALSE(codeRan());
}

TEST_F(BundleTest, OpensAnExecutableInAFolderOfTheBundle) {
    install("Bare");
    std::filesystem::create_directory(realPathOf("Bare") / "lib");
    std::filesystem::rename(realPathOf("Bare") / "Bare.so", realPathOf("Bare") / "lib/Bare.so");
    setInformation("Bare", "CFBundleExecutable", "lib/Bare.so");
    EXPECT_TRUE(Bundle::open(pathOf("Bare")));
}

TEST_F(BundleTest, DoesNotOpenWhatIsNoLibraryForThisMachine) {
    install("Announcing");
    const auto executable = realPathOf("Announcing") / "Announcing.so";
    const auto expectClosed = [&](const char* what) {
        EXPECT_FALSE(Bundle::open(pathOf("Announcing"))) << what;
        EXPECT_FALSE(codeRan()) << what;
    };
    std::filesystem::copy_file(executable, directory() / "whole.so");
    const auto restore = [&] {
        std::filesystem::remove(executable);
        std::filesystem::copy_file(directory() / "whole.so", executable);
    };

    patchExecutable("Announcing", offsetof(Elf64_Ehdr, e_machine), EM_S390);
    expectClosed("another machine");
    restore();
    patchExecutable("Announcing", EI_CLASS, ELFCLASS32);
    expectClosed("another width");
    restore();
    patchExecutable("Announcing", EI_DATA, ELFDATA2MSB);
    expectClosed("another byte order");
    restore();
    patchExecutable("Announcing", offsetof(Elf64_Ehdr, e_type), ET_REL);
    expectClosed("an object file");
    restore();
    const std::uintmax_t end = endOfMappedPart(executable);
    ASSERT_GT(end, 100u);
    for (const std::uintmax_t kept : {end - 1, end / 2, std::uintmax_t{70}, std::uintmax_t{10}}) {
        std::filesystem::resize_file(executable, kept);
        expectClosed("a file that was cut off");
    }
    writeFile(executable, "#!/bin/sh\nexit 0\n");
    expectClosed("a script");
    writeFile(executable, "");
    expectClosed("an empty file");
    std::filesystem::remove(executable);
    expectClosed("no file");
    std::filesystem::create_directory(executable);
    expectClosed("a directory");
    std::filesystem::remove(executable);
    ASSERT_EQ(mkfifo(executable.c_str(), 0600), 0);
    expectClosed("a pipe");
}

TEST_F(BundleTest, DoesNotOpenWithAMissingSymbol) {
    install("MissingSymbol");
    EXPECT_FALSE(Bundle::open(pathOf("MissingSymbol")));
}

TEST_F(BundleTest, SaysNothingItselfWhenItDoesNotOpen) {
    install("MissingSymbol");
    takeLog();
    EXPECT_FALSE(Bundle::open(pathOf("MissingSymbol")));
    EXPECT_FALSE(Bundle::open(pathOf("Missing")));
    EXPECT_THAT(takeLog(), testing::IsEmpty());
}

TEST_F(BundleTest, NeedsAnIdentifier) {
    install("Bare");
    for (const PropertyList& identifier :
         {PropertyList(), PropertyList(""), PropertyList(7), PropertyList(std::string(81, 'x'))}) {
        setInformation("Bare", "CFBundleIdentifier", identifier);
        EXPECT_FALSE(Bundle::open(pathOf("Bare")));
    }
}

TEST_F(BundleTest, MakesNoViewWithoutAUsablePrincipalClass) {
    install("Announcing");
    for (const PropertyList& name :
         {PropertyList(), PropertyList(""), PropertyList("NoSuchView"), PropertyList("HiddenView"),
          PropertyList(3), PropertyList("AnnouncingView\nx"), PropertyList("::AnnouncingView"),
          PropertyList(std::string(100'000, 'A'))}) {
        setInformation("Announcing", "NSPrincipalClass", name);
        const auto bundle = Bundle::open(pathOf("Announcing"));
        ASSERT_TRUE(bundle);
        EXPECT_FALSE(bundle->makePrincipalView());
    }
    EXPECT_THAT(takeLog(), testing::IsEmpty());
}

TEST_F(BundleTest, SurvivesNamesOfAnySort) {
    install("Bare");
    for (const char* name : {"..", "a\nb", "\xff\xfe", "a/../../b", "\xc3\x28"}) {
        EXPECT_FALSE(Bundle::open(std::string(pluginDirectory) + "/" + name));
        setInformation("Bare", "CFBundleIdentifier", std::string("org.example.") + "../x");
        EXPECT_TRUE(Bundle::open(pathOf("Bare"))); // odd, but it does no harm
    }
}

} // namespace
} // namespace plugins
