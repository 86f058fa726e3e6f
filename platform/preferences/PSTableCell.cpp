#include "platform/preferences/PSTableCell.h"

#include "platform/runtime/Creation.h"

namespace preferences {

runtime::Class& PSTableCell::staticClass() {
    static auto& cls = runtime::ClassBuilder<PSTableCell>("PSTableCell", &UIView::staticClass())
                           .method("initWithSpecifier:", &PSTableCell::initWithSpecifier)
                           .method("preferredHeightForWidth:", &PSTableCell::preferredHeightForWidth)
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(PSTableCell)

void PSTableCell::initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
    specifier_ = specifier;
}

double PSTableCell::preferredHeightForWidth(double) const {
    return defaultHeight;
}

void PSTableCell::setStyle(int style, std::string reuseIdentifier) {
    style_ = style;
    reuseIdentifier_ = std::move(reuseIdentifier);
}

} // namespace preferences
