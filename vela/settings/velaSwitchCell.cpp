#include "vela/settings/velaSwitchCell.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageColors.h"

namespace vela {

runtime::Class& velaSwitchCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<velaSwitchCell>("velaSwitchCell", &PSSwitchTableCell::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(velaSwitchCell)

void velaSwitchCell::initWithSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    PSSwitchTableCell::initWithSpecifier(specifier);
    control()->setOnTintColor(colors::accent());
}

} // namespace vela
