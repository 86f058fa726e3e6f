#include "platform/preferences/PSViewController.h"

#include "platform/preferences/UINavigationController.h"

namespace preferences {

runtime::Class& PSViewController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<PSViewController>("PSViewController", &UIViewController::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(PSViewController)

void PSViewController::setSpecifier(std::shared_ptr<PSSpecifier> specifier) {
    specifier_ = std::move(specifier);
    if (specifier_)
        setTitle(specifier_->name());
}

} // namespace preferences
