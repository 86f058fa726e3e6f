#include "hosts/phone/music/RadioStations.h"

#include "platform/foundation/FileManager.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace {

using foundation::PropertyList;
using phone::RadioStation;
using phone::RadioStations;

struct Stations : testing::Test {
    Stations() { files.setDeviceRoot(directory.path()); }
    void write(const std::string& path, PropertyList list) {
        files.createDirectories(path.substr(0, path.rfind('/')));
        ASSERT_TRUE(files.writeDictionaryAtomically(path, {{RadioStations::listKey, std::move(list)}}));
    }
    static PropertyList entry(const std::string& name, const std::string& address) {
        return PropertyList::Dictionary{{"Name", name}, {"Address", address}};
    }

    foundation::FileManager& files = foundation::FileManager::shared();
    tests::TemporaryDirectory directory;
};

TEST_F(Stations, AreNoneOnABareDevice) {
    EXPECT_TRUE(RadioStations::all().empty());
    EXPECT_FALSE(RadioStations::remove(0));
}

TEST_F(Stations, AreThoseOfTheConfigurationUntilTheListIsChanged) {
    write(RadioStations::configurationPath,
          PropertyList::Array{entry("One", "http://one.example/"), entry("Two", "https://two.example/")});
    ASSERT_EQ(RadioStations::all().size(), 2u);
    EXPECT_TRUE(RadioStations::add({"Three", "http://three.example/"}));
    EXPECT_TRUE(RadioStations::remove(0));
    EXPECT_EQ(RadioStations::all(), (std::vector<RadioStation>{{"Two", "https://two.example/"},
                                                               {"Three", "http://three.example/"}}));
}

TEST_F(Stations, StayAwayOnceAllHaveBeenRemoved) {
    write(RadioStations::configurationPath, PropertyList::Array{entry("One", "http://one.example/")});
    EXPECT_TRUE(RadioStations::remove(0));
    EXPECT_TRUE(RadioStations::all().empty());
}

TEST_F(Stations, LeaveOutEntriesThatAreNoStations) {
    write(RadioStations::path,
          PropertyList::Array{PropertyList(5), entry("File", "file:///etc/passwd"), entry("", ""),
                              PropertyList::Dictionary{{"Name", "No address"}},
                              PropertyList::Dictionary{{"Name", 1}, {"Address", 2}},
                              entry("Good", "http://good.example/")});
    EXPECT_EQ(RadioStations::all(), (std::vector<RadioStation>{{"Good", "http://good.example/"}}));
    write(RadioStations::path, "no list");
    EXPECT_TRUE(RadioStations::all().empty());
}

TEST_F(Stations, AreBoundedInNumber) {
    PropertyList::Array many;
    for (std::size_t i = 0; i < RadioStations::mostStations + 50; ++i)
        many.push_back(entry("Station", "http://radio.example/" + std::to_string(i)));
    write(RadioStations::path, many);
    EXPECT_EQ(RadioStations::all().size(), RadioStations::mostStations);
    EXPECT_FALSE(RadioStations::add({"One more", "http://more.example/"}));
}

TEST_F(Stations, AreEnteredLoosely) {
    const auto entered = [](const char* name, const char* address) {
        return RadioStations::fromInput(name, address);
    };
    EXPECT_EQ(entered("Night", "http://radio.example/night"),
              (RadioStation{"Night", "http://radio.example/night"}));
    EXPECT_EQ(entered("", " radio.example/night "),
              (RadioStation{"radio.example", "http://radio.example/night"}));
    for (const char* address :
         {"", "   ", "ftp://radio.example/", "file:///etc/passwd", "http://", "a b c", "javascript:alert(1)"})
        EXPECT_EQ(entered("Night", address), std::nullopt) << address;
    EXPECT_EQ(entered("Night", ("http://radio.example/" + std::string(5000, 'x')).c_str()), std::nullopt);
}

} // namespace
