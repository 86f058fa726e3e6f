// Previews the right panel of an upright phone.
#pragma once

#include "vela/settings/sizePreviewCell.h"

namespace vela {

class rightSizePortraitCell : public sizePreviewCell {
    RUNTIME_CLASS()
public:
    rightSizePortraitCell();
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
};

} // namespace vela
