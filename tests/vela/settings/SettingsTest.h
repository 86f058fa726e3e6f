// The settings process: the library's pages on a stack, the settings bundle's files on an otherwise empty
// device, and a host that only writes down.
#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/preferences/UINavigationController.h"
#include "tests/support/Transcript.h"
#include "tests/vela/settings/RecordingPort.h"
#include "tests/vela/support/ProductTest.h"

#include <gmock/gmock.h>

namespace tests {

class SettingsTest : public ProductTest {
protected:
    SettingsTest();
    ~SettingsTest() override;

    /// A new page of that class, as the row of that name leads to it; on no stack.
    std::shared_ptr<preferences::PSListController> page(const std::string& className,
                                                        const std::string& rowName = "");
    /// The same, as the root of the stack, laid out at the window's size.
    template <class Page = preferences::PSListController>
    std::shared_ptr<Page> shown(const std::string& className, const std::string& rowName = "") {
        auto root = std::dynamic_pointer_cast<Page>(page(className, rowName));
        navigation->pushViewController(root, true);
        return root;
    }
    /// What the page on top is.
    std::shared_ptr<preferences::PSListController> top() const;
    /// Taps the row of that name on the page on top.
    void tapRow(const std::string& name);
    /// Sends a new value to the row of that name on a page.
    static void store(preferences::PSListController& page, const std::string& name,
                      const foundation::PropertyList& value);
    foundation::PropertyList stored(const std::string& key) const;
    void write(const std::string& devicePath, const std::string& bytes);

    static constexpr toolkit::Size windowSize{375, 667};
    support::Transcript transcript;
    RecordingPort port{transcript};
    std::shared_ptr<preferences::UINavigationController> navigation =
        std::make_shared<preferences::UINavigationController>();
};

/// The rows of a page as text, a line each.
std::string dumpOf(preferences::PSListController& page);
/// Whether `text` is what tests/references/settings/NAME.txt holds; if not, what it was is written to a file
/// of that name in the build directory.
testing::AssertionResult matchesReference(const std::string& name, const std::string& text);

} // namespace tests
