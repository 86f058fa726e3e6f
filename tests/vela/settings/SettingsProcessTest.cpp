#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "vela/startup/Startup.h"
#include "vela/stores/Paths.h"

using foundation::PropertyList;

namespace {

struct SettingsProcess : tests::SettingsTest {};

TEST_F(SettingsProcess, SeedsTheFileAndHooksNothing) {
    foundation::FileManager::shared().writeDictionaryAtomically(vela::paths::defaults, {{"Enable", true}});
    runtime::Class* home = runtime::Registry::shared().find("SpringBoard");
    ASSERT_TRUE(home);
    const bool hooked = home->hasOwnMethod("velaCycler"); // by another test of this process
    vela::start();
    EXPECT_EQ(stored("Enable"), PropertyList(true));
    EXPECT_EQ(home->hasOwnMethod("velaCycler"), hooked);
}

TEST_F(SettingsProcess, PagesDoNothingWithoutAHost) {
    preferences::PreferencesPort::setCurrent(nullptr);
    preferences({});
    shown("VelaSettingsController");
    EXPECT_EQ(stored("tutorial"), PropertyList(true));
    shown("contactsController");
    tapRow("Twitter");
    tapRow("Develop your own Vela application");
    shown("restrictionController");
    wait(0);
    EXPECT_TRUE(top()->specifiers().empty());
}

} // namespace
