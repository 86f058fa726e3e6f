// The settings that the pages edit, found by going through the pages as a user would.
//
// A row with a value is a setting: its kind, range and choices are those of the row, and values are read and
// stored through the row's own getter and setter.
#pragma once

#include "platform/preferences/PSListController.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace settings {

class KnownSettings {
public:
    /// Goes through these pages and all that they lead to. `settle` lets happen what a page has put off until
    /// it is on screen.
    KnownSettings(const std::vector<std::shared_ptr<preferences::PSViewController>>& roots,
                  std::function<void()> settle);

    using Row = std::shared_ptr<preferences::PSSpecifier>;
    /// In the order of the pages.
    const std::vector<Row>& rows() const { return rows_; }
    /// Null for a key that no page edits.
    Row find(const std::string& key) const;

    /// What values the row takes: "on, off", "0.55 to 0.95", "dark, light, auto".
    static std::string describeValues(const preferences::PSSpecifier& row);
    /// The row's value as it is written on a command line; nothing when there is none.
    static std::optional<std::string> valueText(preferences::PSSpecifier& row);
    /// What is written on a command line as the row's value; throws std::invalid_argument with the reason
    /// when it is no value of the row.
    static foundation::PropertyList parseValue(const preferences::PSSpecifier& row, const std::string& text);

private:
    void walk(const std::shared_ptr<preferences::PSViewController>& page);
    void take(preferences::PSListController& page, const Row& row);

    std::function<void()> settle_;
    std::vector<Row> rows_;
    std::vector<std::shared_ptr<preferences::PSViewController>> pages_; // the rows' targets
    std::set<std::string> visited_;                                     // classes of pages
};

} // namespace settings
