#include "hosts/phone/program/DemonstrationMusic.h"

#include "tests/support/TestMusicLibrary.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Demonstration : testing::Test {
    Demonstration() { library->setScanning(true); }
    std::shared_ptr<support::TestMusicLibrary> library = std::make_shared<support::TestMusicLibrary>();
    phone::DemonstrationMusic music{library, "/demonstration"};
};

TEST_F(Demonstration, FillsALibraryThatTurnsOutToBeEmpty) {
    library->setScanning(true);
    EXPECT_THAT(library->directories(), IsEmpty());
    library->setScanning(false);
    EXPECT_THAT(library->directories(), ElementsAre("/demonstration"));
}

TEST_F(Demonstration, StaysAwayFromALibraryWithSongs) {
    library->add("Rain", "Mira Vale", "Attic");
    library->setScanning(false);
    EXPECT_THAT(library->directories(), IsEmpty());
}

TEST_F(Demonstration, DoesNotComeBackWhenTheLibraryIsEmptiedLater) {
    library->add("Rain", "Mira Vale", "Attic");
    library->setScanning(false);
    library->setSongs({});
    EXPECT_THAT(library->directories(), IsEmpty());
}

} // namespace
