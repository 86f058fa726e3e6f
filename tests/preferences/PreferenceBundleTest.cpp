#include "tests/preferences/PreferencesTest.h"

#include "platform/preferences/PreferenceBundle.h"

using foundation::FileManager;
using foundation::PropertyList;
using preferences::PreferenceBundle;

namespace {

struct Bundles : tests::PreferencesTest {
    void information(const PropertyList::Dictionary& values) {
        FileManager::shared().createDirectories("/Library/PreferenceBundles/Some.bundle");
        ASSERT_TRUE(FileManager::shared().writeDictionaryAtomically(path + "/Info.plist", values));
    }
    const std::string path = "/Library/PreferenceBundles/Some.bundle";
};

TEST_F(Bundles, NameTheirRootPage) {
    information({{"NSPrincipalClass", "RecordingPage"}, {"CFBundleDisplayName", "Some"}});
    const auto bundle = PreferenceBundle::read(path);
    ASSERT_TRUE(bundle);
    const auto root = bundle->makeRootController();
    ASSERT_TRUE(root);
    EXPECT_EQ(root->isa().name(), "RecordingPage");
    EXPECT_EQ(root->title(), "Some");
    EXPECT_NE(bundle->makeRootController(), root);
}

TEST_F(Bundles, WithoutAPageOfThatNameHaveNone) {
    for (const PropertyList& name :
         {PropertyList("NoSuchClass"), PropertyList("PSSpecifier"), PropertyList(3), PropertyList("")}) {
        information({{"NSPrincipalClass", name}});
        EXPECT_FALSE(PreferenceBundle::read(path)->makeRootController());
    }
}

TEST_F(Bundles, WithoutInformationAreNone) {
    EXPECT_FALSE(PreferenceBundle::read(path));
    EXPECT_FALSE(PreferenceBundle::read("/../../etc"));
}

} // namespace
