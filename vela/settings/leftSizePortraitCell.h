// Previews the left panel of an upright phone.
#pragma once

#include "vela/settings/sizePreviewCell.h"

namespace vela {

class leftSizePortraitCell : public sizePreviewCell {
    RUNTIME_CLASS()
public:
    leftSizePortraitCell();
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
};

} // namespace vela
