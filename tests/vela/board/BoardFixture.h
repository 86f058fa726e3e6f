// A board with plug-ins in the device's plug-in folder.
#pragma once

#include "tests/vela/support/ProductTest.h"

#include "platform/foundation/FileManager.h"
#include "vela/board/velaApplicationView.h"
#include "vela/board/velaBoard.h"
#include "vela/stores/Paths.h"

namespace tests {

class BoardFixture : public ProductTest {
protected:
    BoardFixture() { std::filesystem::create_directories(plugInFolder()); }

    std::filesystem::path plugInFolder() const { return root / (vela::paths::plugIns + 1); }
    void install(const std::string& name, foundation::PropertyList::Dictionary info) {
        std::filesystem::create_directories(plugInFolder() / name);
        ASSERT_TRUE(foundation::FileManager::shared().writeDictionaryAtomically(
            std::string(vela::paths::plugIns) + "/" + name + "/Info.plist", info));
    }
    /// Plug-ins that have nothing but a name: "tile0", "tile1", …
    void installTiles(int count) {
        for (int i = 0; i < count; ++i) {
            const std::string name = "tile" + std::to_string(i);
            install(name, {{"CFBundleIdentifier", name}, {"display_name", "Tile " + std::to_string(i)}});
        }
    }
};

} // namespace tests
