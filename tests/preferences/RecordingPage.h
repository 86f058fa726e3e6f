// A settings page whose rows keep their values in a dictionary, and which writes down what it is told.
#pragma once

#include "platform/preferences/PSEditableListController.h"
#include "tests/support/Transcript.h"

namespace tests {

class RecordingPage : public preferences::PSEditableListController {
    RUNTIME_CLASS()
public:
    foundation::PropertyList getValue(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
        return foundation::PropertyList(values)[specifier->identifier()];
    }
    void setValue(const foundation::PropertyList& value,
                  const std::shared_ptr<preferences::PSSpecifier>& specifier) {
        transcript().add("store ", specifier->name(), " ", value.doubleValue());
        values[specifier->identifier()] = value;
    }
    void tapped() { transcript().add("tapped"); }
    void removed(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
        transcript().add("removed ", specifier->name());
    }
    std::shared_ptr<preferences::PSSpecifier> row(const std::string& name, preferences::PSCellType type,
                                                  const std::string& detail = "") {
        return preferences::PSSpecifier::preferenceSpecifierNamed(
            name, this, "setValue:forSpecifier:", "getValue:", detail, type);
    }

    void viewWillAppear(bool animated) override { told("will appear", animated); }
    void viewDidAppear(bool animated) override { told("did appear", animated); }
    void viewWillDisappear(bool animated) override {
        told("will disappear", animated);
        PSEditableListController::viewWillDisappear(animated);
    }
    void viewDidLayoutSubviews() override {
        transcript().add(title(), " laid out ", view()->frame());
        reloadSpecifiers();
    }

    /// One for all pages.
    static support::Transcript& transcript() {
        static support::Transcript lines;
        return lines;
    }
    foundation::PropertyList::Dictionary values;
    Specifiers rows; // what the page is made of
    int made = 0;    // how often

protected:
    Specifiers makeSpecifiers() override {
        ++made;
        return rows;
    }

private:
    void told(const char* what, bool animated) {
        transcript().add(title(), " ", what, animated ? " animated" : "");
    }
};

} // namespace tests
