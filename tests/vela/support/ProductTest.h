// What the product's tests stand on: an empty device root, a virtual clock, a host that answers what it is
// told, and a product that has not been launched.
#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/VirtualRunLoop.h"
#include "platform/toolkit/windows/UIDevice.h"
#include "tests/support/TestHost.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tests {

class ProductTest : public testing::Test {
protected:
    ProductTest();
    ~ProductTest() override;

    /// Writes the whole preferences file.
    void preferences(foundation::PropertyList::Dictionary values);
    /// Changes one key of it, as another process would; nil takes the key away.
    void preference(const std::string& key, foundation::PropertyList value);
    /// Every preference such that both panels work.
    static foundation::PropertyList::Dictionary usualPreferences();

    void screen(double width, double height);
    void device(toolkit::DeviceOrientation orientation);

    /// Lets the home screen launch with the hooks in place.
    void launch();

    void wait(double seconds) { loop.advance(seconds); }
    void touchDown(double x, double y, std::int64_t finger = 1);
    /// In even steps, one every sixtieth of a second.
    void touchMove(double x, double y, double seconds, std::int64_t finger = 1);
    void touchUp(std::int64_t finger = 1);
    void tap(double x, double y);

    std::filesystem::path root;
    foundation::VirtualRunLoop loop;
    std::unique_ptr<TestHost> host;

private:
    std::map<std::int64_t, toolkit::Point> fingers_;
};

} // namespace tests
