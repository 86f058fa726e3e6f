#include "vela/settings/rightSizeLandscapeCell.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/stores/PreferenceKeys.h"

namespace vela {

runtime::Class& rightSizeLandscapeCell::staticClass() {
    static auto& cls = runtime::ClassBuilder<rightSizeLandscapeCell>("rightSizeLandscapeCell",
                                                                     &sizePreviewCell::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(rightSizeLandscapeCell)

rightSizeLandscapeCell::rightSizeLandscapeCell()
    : sizePreviewCell({"landscape_background.png", keys::rightSizePortrait, 180, Edge::Right}) {}

void rightSizeLandscapeCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    pageState().rightLandscapeCell = std::static_pointer_cast<rightSizeLandscapeCell>(shared_from_this());
    sizePreviewCell::initWithSpecifier(specifier);
}

} // namespace vela
