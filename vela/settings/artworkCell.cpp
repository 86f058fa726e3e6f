#include "vela/settings/artworkCell.h"

#include "platform/runtime/Creation.h"
#include "platform/toolkit/views/UIImageView.h"
#include "vela/settings/PageState.h"
#include "vela/settings/Pictures.h"

namespace vela {

runtime::Class& artworkCell::staticClass() {
    static auto& cls = runtime::ClassBuilder<artworkCell>("artworkCell", &PSTableCell::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(artworkCell)

void artworkCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    PSTableCell::initWithSpecifier(specifier);
    setStyle(0, "headerCell");
    const double width = pageState().width;
    addSubview(std::make_shared<toolkit::UIImageView>(
        toolkit::Rect(0, 0, width, preferredHeightForWidth(width)), pictures::atPath(pageState().fileName)));
}

double artworkCell::preferredHeightForWidth(double) const {
    return pageState().width;
}

} // namespace vela
