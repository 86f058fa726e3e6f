// Previews the right panel of a phone on its side. Begins with the upright phone's size, until it is told
// another.
#pragma once

#include "vela/settings/sizePreviewCell.h"

namespace vela {

class rightSizeLandscapeCell : public sizePreviewCell {
    RUNTIME_CLASS()
public:
    rightSizeLandscapeCell();
    void initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;
};

} // namespace vela
