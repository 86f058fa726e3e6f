#include "vela/settings/leftSizePortraitCell.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/stores/PreferenceKeys.h"

namespace vela {

runtime::Class& leftSizePortraitCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<leftSizePortraitCell>("leftSizePortraitCell", &sizePreviewCell::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(leftSizePortraitCell)

leftSizePortraitCell::leftSizePortraitCell()
    : sizePreviewCell({"background.png", keys::leftSizePortrait, 320, Edge::Left}) {}

void leftSizePortraitCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    pageState().leftPortraitCell = std::static_pointer_cast<leftSizePortraitCell>(shared_from_this());
    sizePreviewCell::initWithSpecifier(specifier);
}

} // namespace vela
