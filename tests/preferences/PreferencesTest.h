// A virtual main loop and an empty device for tests of the settings framework.
#pragma once

#include "platform/foundation/FileManager.h"
#include "tests/preferences/RecordingPage.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/ToolkitTest.h"

namespace tests {

class PreferencesTest : public support::ToolkitTest {
protected:
    PreferencesTest() {
        foundation::FileManager::shared().setDeviceRoot(device.path());
        RecordingPage::transcript().take();
    }
    std::shared_ptr<RecordingPage> page(const std::string& title) {
        auto made = std::make_shared<RecordingPage>();
        made->setTitle(title);
        return made;
    }
    static std::vector<std::string> told() { return RecordingPage::transcript().take(); }

    TemporaryDirectory device;
};

} // namespace tests
