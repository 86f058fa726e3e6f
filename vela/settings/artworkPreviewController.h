// The page that shows one artwork: the one that its title names.
#pragma once

#include "platform/preferences/PSListController.h"

namespace vela {

class artworkPreviewController : public preferences::PSListController {
    RUNTIME_CLASS()
public:
    void viewDidLayoutSubviews() override;

protected:
    Specifiers makeSpecifiers() override;
};

} // namespace vela
