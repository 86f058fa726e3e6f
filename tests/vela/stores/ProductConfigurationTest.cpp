#include "vela/stores/ProductConfiguration.h"

#include "platform/foundation/FileManager.h"
#include "tests/vela/support/ProductTest.h"
#include "vela/stores/Paths.h"

#include <fstream>

using foundation::FileManager;
using foundation::PropertyList;

namespace {

struct ProductConfiguration : tests::ProductTest {
    const vela::ProductConfiguration& configuration = vela::ProductConfiguration::shared();
    void write(const PropertyList::Dictionary& values) {
        FileManager::shared().writeDictionaryAtomically(vela::paths::configuration, values);
    }
};

TEST_F(ProductConfiguration, NamesTheServices) {
    write({{"Lyrics", "http://lyrics.example"},
           {"Catalogue", "https://catalogue.example"},
           {"Social web host", "https://social.example"},
           {"Developer tutorial", "https://docs.example/plug-ins/"},
           {"Tutorial video", "https://video.example/list.m3u8"}});
    EXPECT_EQ(configuration.lyrics(), "http://lyrics.example");
    EXPECT_EQ(configuration.catalogue(), "https://catalogue.example");
    EXPECT_EQ(configuration.socialWebHost(), "https://social.example");
    EXPECT_EQ(configuration.developerTutorial(), "https://docs.example/plug-ins/");
    EXPECT_EQ(configuration.tutorialVideo(), "https://video.example/list.m3u8");
}

TEST_F(ProductConfiguration, LeavesSlashesAtTheEndOfBaseAddressesAway) {
    write({{"Lyrics", "http://lyrics.example//"}});
    EXPECT_EQ(configuration.lyrics(), "http://lyrics.example");
}

TEST_F(ProductConfiguration, IsEmptyWhereItSaysNothing) {
    EXPECT_EQ(configuration.lyrics(), "");
    write({{"Lyrics", 7}, {"Catalogue", PropertyList::Array{"a"}}});
    EXPECT_EQ(configuration.lyrics(), "");
    EXPECT_EQ(configuration.catalogue(), "");
    EXPECT_EQ(configuration.tutorialVideo(), "");
    std::ofstream(root / (vela::paths::configuration + 1)) << "garbage";
    EXPECT_EQ(configuration.lyrics(), "");
}

TEST_F(ProductConfiguration, IsReadAfresh) {
    write({{"Lyrics", "http://one.example"}});
    EXPECT_EQ(configuration.lyrics(), "http://one.example");
    write({{"Lyrics", "http://two.example"}});
    EXPECT_EQ(configuration.lyrics(), "http://two.example");
}

TEST_F(ProductConfiguration, ComesWithEveryAddress) {
    FileManager::shared().setDeviceRoot(VELA_SOURCE_DIR "/resources/device");
    EXPECT_NE(configuration.lyrics(), "");
    EXPECT_NE(configuration.catalogue(), "");
    EXPECT_NE(configuration.socialWebHost(), "");
    EXPECT_NE(configuration.developerTutorial(), "");
    EXPECT_NE(configuration.tutorialVideo(), "");
}

} // namespace
