#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/preferences/SFSafariViewController.h"
#include "vela/stores/Paths.h"

using testing::ElementsAre;

namespace {

struct ContactsPage : tests::SettingsTest {
    ContactsPage() {
        foundation::FileManager::shared().writeDictionaryAtomically(
            vela::paths::configuration,
            {{"Social web host", "https://social.example"}, {"Developer tutorial", "https://doc.example/t"}});
        shown("contactsController", "Contacts");
    }
};

TEST_F(ContactsPage, HasItsRows) {
    EXPECT_TRUE(tests::matchesReference("contacts", tests::dumpOf(*top())));
}

TEST_F(ContactsPage, OpensTheFirstClientThatIsInstalled) {
    port.schemes = {"tweetbot:", "twitter:"};
    tapRow("Twitter");
    EXPECT_THAT(transcript.take(),
                ElementsAre("probe tweetbot:", "open tweetbot:///user_profile/tarnfield5"));
}

TEST_F(ContactsPage, OpensTheSecondClient) {
    port.schemes = {"tweetings:", "twitter:"};
    tapRow("Twitter");
    EXPECT_THAT(transcript.take(), ElementsAre("probe tweetbot:", "probe tweetings:",
                                               "open tweetings:///user?screen_name=tarnfield5"));
}

TEST_F(ContactsPage, OpensTheThirdClient) {
    port.schemes = {"twitter:"};
    tapRow("Twitter");
    EXPECT_THAT(transcript.take(), ElementsAre("probe tweetbot:", "probe tweetings:", "probe twitter:",
                                               "open twitter://user?screen_name=tarnfield5"));
}

TEST_F(ContactsPage, OpensTheWebWithoutAClient) {
    tapRow("Twitter");
    EXPECT_THAT(transcript.take(),
                ElementsAre("probe tweetbot:", "probe tweetings:", "probe twitter:",
                            "open https://social.example/intent/follow?screen_name=tarnfield5"));
}

TEST_F(ContactsPage, ShowsTheDevelopersTutorialWithinTheApplication) {
    tapRow("Develop your own Vela application");
    EXPECT_THAT(transcript.take(), ElementsAre("present SFSafariViewController animated"));
    const auto document =
        std::dynamic_pointer_cast<preferences::SFSafariViewController>(port.presented.back());
    EXPECT_EQ(document->url(), "https://doc.example/t");
}

} // namespace
