#include "vela/settings/preferencePage.h"
#include "tests/vela/settings/SettingsTest.h"

using foundation::PropertyList;

namespace {

/// A page that notes what was stored when it was told of each new value.
struct WatchingPage : vela::preferencePage {
    std::vector<PropertyList> news;
    std::vector<PropertyList> storedBefore;
    std::function<PropertyList(const std::string& key)> stored;

protected:
    void willStore(const PropertyList& value, const std::string& key) override {
        news.push_back(value);
        storedBefore.push_back(stored(key));
    }
};

struct PreferencePage : tests::SettingsTest {};

TEST_F(PreferencePage, ReactsBeforeItStores) {
    const auto page = std::make_shared<WatchingPage>();
    page->stored = [this](const std::string& key) { return stored(key); };
    const auto row = std::make_shared<preferences::PSSpecifier>("key", preferences::PSCellType::Switch);
    page->setValue("first", row);
    page->setValue("second", row);
    EXPECT_EQ(page->news, (std::vector<PropertyList>{"first", "second"}));
    EXPECT_EQ(page->storedBefore, (std::vector<PropertyList>{PropertyList(), "first"}));
    EXPECT_EQ(page->getValue(row), PropertyList("second"));
}

} // namespace
