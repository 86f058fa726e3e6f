// The root page of the settings.
#pragma once

#include "vela/settings/preferencePage.h"

namespace vela {

class VelaSettingsController : public preferencePage {
    RUNTIME_CLASS()
public:
    void viewWillAppear(bool animated) override;
    void viewDidLayoutSubviews() override;
    /// Opens a sheet to tell the world.
    void Tweet();

protected:
    Specifiers makeSpecifiers() override;
    void willStore(const foundation::PropertyList& value, const std::string& key) override;

private:
    void fillNavigationItem();
    std::shared_ptr<preferences::PSSpecifier> withIcon(std::shared_ptr<preferences::PSSpecifier> row,
                                                       const std::string& fileName);
};

} // namespace vela
