// A switch for each application: on, it keeps the product away while that application is in front.
//
// The list of applications is made once, after the page has appeared, so that the page is there at once.
#pragma once

#include "vela/settings/preferencePage.h"

#include "platform/foundation/Handle.h"

namespace vela {

class restrictionController : public preferencePage {
    RUNTIME_CLASS()
public:
    void viewDidAppear(bool animated) override;
    /// Adds a row for each application that has an icon of its own.
    void loadApps();

private:
    void addApplication(const std::string& bundleIdentifier, std::shared_ptr<const toolkit::Image> icon);

    foundation::Handle loading_;
};

} // namespace vela
