// What pages present over the window: the welcome screen, the film, a document of the device or of the web.
#include "tests/settings-app/SettingsProgramTest.h"

#include <gmock/gmock.h>

namespace settings {
namespace {

class PresentedTest : public SettingsProgramTest {
protected:
    static constexpr const char* configurationFile = "/Library/Application Support/Vela/configuration.plist";

    static void configure(const std::string& key, const std::string& address) {
        auto configuration = dictionary(configurationFile);
        configuration.insert_or_assign(key, PropertyList(address));
        ASSERT_TRUE(files().writeDictionaryAtomically(configurationFile, configuration));
    }
    /// The text of the document page.
    std::string document() {
        openPage({"Contacts"});
        press("list item", "Develop your own Vela application");
        const Accessible reader = find("text", "Document");
        waitUntil([&] { return !reader.text().empty(); });
        return reader.text();
    }
};

TEST_F(PresentedTest, ReadsADocumentOfTheDevice) {
    configure("Developer tutorial", "file:///Library/page.html");
    std::ofstream(root() + "/Library/page.html")
        << "<html><head><title>no</title></head><body><h1>One  &amp;\n two</h1><p>A <b>bold</b> word.</p>"
           "<script>alert('no')</script><ul><li>first</li><li>second</li></ul><pre>a\n  b</pre>";
    start();
    EXPECT_EQ(document(), "One & two\nA bold word.\n• first\n• second\na\n  b\n");
    desktop().key("Escape");
    EXPECT_TRUE(find("list item", "Twitter"));
}

TEST_F(PresentedTest, BringsATutorialForDevelopersAlong) {
    start();
    EXPECT_THAT(document(),
                testing::AllOf(testing::StartsWith("Plug-ins\n"), testing::HasSubstr("Your first tile")));
}

TEST_F(PresentedTest, ShowsTheAddressOfADocumentThatCannotBeLoaded) {
    configure("Developer tutorial", "file:///Library/../../../etc/passwd");
    start();
    EXPECT_EQ(document(), "file:///Library/../../../etc/passwd");
}

TEST_F(PresentedTest, PlaysTheFilmAfterTheWelcomeScreen) {
    start();
    openPage({"Guide"});
    press("list item", "Watch tutorial");
    ASSERT_TRUE(find("push button", "Tutorial").activate());
    // The time that the film's own controls show goes on.
    EXPECT_TRUE(waitUntil([&] {
        for (const Accessible& film :
             window().all([](const Accessible& object) { return object.name() == "Film"; }))
            for (const Accessible& time :
                 film.all([](const Accessible& object) { return object.role() == "slider"; }))
                if (time.value().value_or(0) > 0.3)
                    return true;
        return false;
    }));
    EXPECT_FALSE(has("push button", "Tutorial"));
    desktop().key("Escape");
    EXPECT_TRUE(find("list item", "Watch tutorial"));
    EXPECT_TRUE(isRunning());
}

} // namespace
} // namespace settings
