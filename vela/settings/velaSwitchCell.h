// A switch in the product's red.
#pragma once

#include "platform/preferences/PSSwitchTableCell.h"

namespace vela {

class velaSwitchCell : public preferences::PSSwitchTableCell {
    RUNTIME_CLASS()
public:
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
};

} // namespace vela
