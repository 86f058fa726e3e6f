#include "vela/settings/rightSizePortraitCell.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/stores/PreferenceKeys.h"

namespace vela {

runtime::Class& rightSizePortraitCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<rightSizePortraitCell>("rightSizePortraitCell", &sizePreviewCell::staticClass())
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(rightSizePortraitCell)

rightSizePortraitCell::rightSizePortraitCell()
    : sizePreviewCell({"background.png", keys::rightSizePortrait, 320, Edge::Right}) {}

void rightSizePortraitCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    pageState().rightPortraitCell = std::static_pointer_cast<rightSizePortraitCell>(shared_from_this());
    sizePreviewCell::initWithSpecifier(specifier);
}

} // namespace vela
