// What the product does, and what each plug-in's developer says about it. The rows are made once.
#pragma once

#include "platform/preferences/PSListController.h"

namespace vela {

class guideController : public preferences::PSListController {
    RUNTIME_CLASS()
public:
    void showTutorial();

protected:
    Specifiers makeSpecifiers() override;

private:
    Specifiers plugInRows() const;
};

} // namespace vela
