// A test with a device of its own, on which plug-ins made for tests are installed as real bundles.
#pragma once

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Log.h"
#include "platform/plugins/Bundle.h"
#include "platform/plugins/CallRecord.h"
#include "platform/plugins/CrashNote.h"
#include "platform/plugins/DisabledPlugins.h"
#include "platform/plugins/PluginStorage.h"
#include "platform/runtime/Message.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/ToolkitTest.h"

#include <fstream>

namespace plugins {

class PluginTest : public support::ToolkitTest {
protected:
    PluginTest() {
        files().setDeviceRoot(directory_.path() / "root");
        files().createDirectories(pluginDirectory);
        foundation::setLogToStandardError(false);
        foundation::clearLog();
        clearRecordedCalls();
    }
    ~PluginTest() override {
        window_ = nullptr;
        foundation::setLogToStandardError(true);
    }

    static constexpr const char* pluginDirectory = "/Library/Application Support/Vela/Plugins";

    static foundation::FileManager& files() { return foundation::FileManager::shared(); }
    static std::string pathOf(const std::string& name) {
        return std::string(pluginDirectory) + "/" + name + ".bundle";
    }
    std::filesystem::path realPathOf(const std::string& name) const {
        return directory_.path() / ("root" + pathOf(name));
    }
    const std::filesystem::path& directory() const { return directory_.path(); }

    /// Installs one of the plug-ins of tests/fixtures/plugins and answers its device path.
    std::string install(const std::string& name) const {
        std::filesystem::copy(std::filesystem::path(VELA_BINARY_DIR) / "test-plugins" / (name + ".bundle"),
                              realPathOf(name), std::filesystem::copy_options::recursive);
        return pathOf(name);
    }
    /// Changes an installed bundle's information; a nil value takes the key away.
    static void setInformation(const std::string& name, const std::string& key,
                               const foundation::PropertyList& value) {
        const std::string path = pathOf(name) + "/Info.plist";
        auto information = files().readDictionary(path).value();
        if (value.isNil())
            information.erase(key);
        else
            information.insert_or_assign(key, value);
        ASSERT_TRUE(files().writeDictionaryAtomically(path, information));
    }
    static void writeFile(const std::filesystem::path& path, const std::string& contents) {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << contents;
    }

    /// A plug-in's view in a window, laid out; null when it cannot be made.
    std::shared_ptr<toolkit::UIView> show(const std::string& name, toolkit::Size size = {300, 400}) {
        const auto bundle = Bundle::open(pathOf(name));
        auto view = bundle ? bundle->makePrincipalView() : nullptr;
        if (!view)
            return nullptr;
        view->setFrame({0, 0, size.width, size.height});
        window_ = shownWindow({0, 0, size.width, size.height});
        window_->addSubview(view);
        loop.turn();
        return view;
    }
    void closeWindow() { window_ = nullptr; }
    static void send(toolkit::UIView& view, const char* method) { runtime::Message<void()>{method}(view); }

    /// The lines of the log since the last call of this.
    static std::vector<std::string> takeLog() {
        auto lines = foundation::loggedLines();
        foundation::clearLog();
        return lines;
    }

private:
    tests::TemporaryDirectory directory_;
    std::shared_ptr<toolkit::UIWindow> window_;
};

} // namespace plugins
