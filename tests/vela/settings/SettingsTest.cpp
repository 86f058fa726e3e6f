#include "tests/vela/settings/SettingsTest.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/stores/Paths.h"

#include <fstream>
#include <sstream>

using foundation::FileManager;
using foundation::PropertyList;
using preferences::PSListController;

namespace tests {

SettingsTest::SettingsTest() {
    foundation::ProcessInfo::shared().mainBundleIdentifier = "com.apple.Preferences";
    std::filesystem::copy(std::filesystem::path(VELA_SOURCE_DIR) /
                              "resources/device/Library/PreferenceBundles",
                          root / "Library/PreferenceBundles", std::filesystem::copy_options::recursive);
    FileManager::shared().createDirectories(vela::paths::artworks);
    FileManager::shared().createDirectories(vela::paths::plugIns);
    vela::pageState() = {};
    navigation->setContentSize(windowSize);
}

SettingsTest::~SettingsTest() {
    vela::pageState() = {};
}

std::shared_ptr<PSListController> SettingsTest::page(const std::string& className,
                                                     const std::string& rowName) {
    auto made = runtime::createInstanceOf<PSListController>(className);
    if (made)
        made->setSpecifier(
            std::make_shared<preferences::PSSpecifier>(rowName, preferences::PSCellType::Link));
    return made;
}

std::shared_ptr<PSListController> SettingsTest::top() const {
    return std::dynamic_pointer_cast<PSListController>(navigation->topViewController());
}

void SettingsTest::tapRow(const std::string& name) {
    const auto row = top()->specifierForID(name);
    ASSERT_TRUE(row) << name;
    top()->selectSpecifier(row);
}

void SettingsTest::store(PSListController& page, const std::string& name, const PropertyList& value) {
    const auto row = page.specifierForID(name);
    ASSERT_TRUE(row) << name;
    row->performSetterWithValue(value);
}

PropertyList SettingsTest::stored(const std::string& key) const {
    const auto values = FileManager::shared().readDictionary(vela::paths::preferences);
    return values ? PropertyList(*values)[key] : PropertyList();
}

void SettingsTest::write(const std::string& devicePath, const std::string& bytes) {
    const std::filesystem::path path = root / devicePath.substr(1);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

namespace {

const char* kindOf(preferences::PSCellType type) {
    using enum preferences::PSCellType;
    switch (type) {
    case Group:
        return "group";
    case Link:
        return "link";
    case LinkList:
        return "list";
    case ListItem:
        return "choice";
    case Slider:
        return "slider";
    case Switch:
        return "switch";
    case StaticText:
        return "text";
    }
    return "?";
}

std::string numberText(double number) {
    std::ostringstream stream;
    stream << number;
    return stream.str();
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::string rowOf(const preferences::PSSpecifier& row) {
    std::string line =
        std::string(row.isGroup() ? "" : "  ") + kindOf(row.cellType()) + " " + quoted(row.name());
    const auto add = [&](const char* what, const std::string& value) {
        if (!value.empty())
            line += std::string(" ") + what + " " + value;
    };
    for (const char* key : {"headerCellClass", "cellClass"})
        add(key, row.textForKey(key));
    if (const PropertyList minimum = row.propertyForKey("min"); !minimum.isNil())
        line += " from " + numberText(minimum.doubleValue()) + " to " +
                numberText(row.propertyForKey("max").doubleValue()) +
                (row.propertyForKey("isContinuous").boolValue() ? " continuous" : "");
    for (std::size_t i = 0; i < row.values().size(); ++i)
        add(quoted(*row.values()[i].string()).c_str(), "= " + quoted(row.titles()[i]));
    add("opens", row.detailControllerClass());
    add("sends", row.buttonAction() ? row.buttonAction()->name() : "");
    add("deleted", row.deletionAction() ? row.deletionAction()->name() : "");
    if (row.hasIconImage())
        line += row.iconImage() ? " icon" : " missing icon";
    if (const PropertyList footer = row.propertyForKey("footerText"); footer.string())
        add("footer", quoted(*footer.string()));
    return line;
}

} // namespace

std::string dumpOf(PSListController& page) {
    std::string text;
    for (const auto& row : page.specifiers())
        text += rowOf(*row) + "\n";
    return text;
}

testing::AssertionResult matchesReference(const std::string& name, const std::string& text) {
    const std::string file = "settings/" + name + ".txt";
    std::ifstream stream(std::filesystem::path(VELA_SOURCE_DIR) / "tests/references" / file);
    const std::string expected{std::istreambuf_iterator<char>(stream), {}};
    if (stream && text == expected)
        return testing::AssertionSuccess();
    const auto actual = std::filesystem::path(VELA_BINARY_DIR) / "tests/actual" / file;
    std::filesystem::create_directories(actual.parent_path());
    std::ofstream(actual) << text;
    return testing::AssertionFailure()
           << "differs from tests/references/" << file << "; it was written to " << actual;
}

} // namespace tests
