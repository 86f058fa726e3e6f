// A settings page whose rows are preferences: a row's identifier is the key of what it shows and stores.
#pragma once

#include "platform/preferences/PSListController.h"

namespace vela {

class preferencePage : public preferences::PSListController {
    RUNTIME_CLASS()
public:
    foundation::PropertyList getValue(const std::shared_ptr<preferences::PSSpecifier>& specifier);
    /// Lets the page react to the new value, then stores it.
    void setValue(const foundation::PropertyList& value,
                  const std::shared_ptr<preferences::PSSpecifier>& specifier);

protected:
    /// What is to happen before a value is stored.
    virtual void willStore(const foundation::PropertyList&, const std::string& /*key*/) {}

    std::shared_ptr<preferences::PSSpecifier> switchRow(const std::string& key);
    /// A row that leads to the page of that class.
    std::shared_ptr<preferences::PSSpecifier> linkRow(const std::string& name, const std::string& pageClass);
    /// A row of any other kind, with getter and setter.
    std::shared_ptr<preferences::PSSpecifier> valueRow(const std::string& key, const std::string& pageClass,
                                                       preferences::PSCellType cell);
};

} // namespace vela
