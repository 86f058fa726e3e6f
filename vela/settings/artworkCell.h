// One artwork, in a square as wide as the page.
#pragma once

#include "platform/preferences/PSTableCell.h"

namespace vela {

class artworkCell : public preferences::PSTableCell {
    RUNTIME_CLASS()
public:
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
    double preferredHeightForWidth(double) const override;
};

} // namespace vela
