#include "vela/settings/leftSizeLandscapeCell.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/stores/PreferenceKeys.h"

namespace vela {

runtime::Class& leftSizeLandscapeCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<leftSizeLandscapeCell>("leftSizeLandscapeCell", &sizePreviewCell::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(leftSizeLandscapeCell)

leftSizeLandscapeCell::leftSizeLandscapeCell()
    : sizePreviewCell({"landscape_background.png", keys::leftSizePortrait, 180, Edge::Left}) {}

void leftSizeLandscapeCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    pageState().leftLandscapeCell = std::static_pointer_cast<leftSizeLandscapeCell>(shared_from_this());
    sizePreviewCell::initWithSpecifier(specifier);
}

} // namespace vela
