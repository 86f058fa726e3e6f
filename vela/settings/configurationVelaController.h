// The page that configures the panels, with a preview of each panel's size.
#pragma once

#include "vela/settings/preferencePage.h"

namespace vela {

class configurationVelaController : public preferencePage {
    RUNTIME_CLASS()
public:
    void viewDidLayoutSubviews() override;

protected:
    Specifiers makeSpecifiers() override;
    void willStore(const foundation::PropertyList& value, const std::string& key) override;

private:
    Specifiers sizeRows();
    Specifiers switchRows();
    Specifiers grabberAndSongRows();
    Specifiers managementRows();
    std::shared_ptr<preferences::PSSpecifier> listRow(const std::string& key,
                                                      std::vector<foundation::PropertyList> values,
                                                      std::vector<std::string> titles);
    std::shared_ptr<preferences::PSSpecifier> sliderRow(const std::string& key, double minimum);
};

} // namespace vela
