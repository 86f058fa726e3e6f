#include "platform/preferences/PSSwitchTableCell.h"

#include "platform/runtime/Creation.h"

namespace preferences {

namespace {
constexpr double trailingMargin = 15; // points
}

runtime::Class& PSSwitchTableCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<PSSwitchTableCell>("PSSwitchTableCell", &PSTableCell::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(PSSwitchTableCell)

PSSwitchTableCell::PSSwitchTableCell() {
    control_->addHandler(toolkit::ControlEvent::ValueChanged, [this] {
        if (specifier())
            specifier()->performSetterWithValue(control_->isOn());
    });
}

void PSSwitchTableCell::initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
    PSTableCell::initWithSpecifier(specifier);
    addSubview(control_);
    if (specifier)
        control_->setOn(specifier->performGetter().boolValue());
}

void PSSwitchTableCell::layoutSubviews() {
    const toolkit::Size size = toolkit::UISwitch::switchSize;
    control_->setFrame(
        {{bounds().width - size.width - trailingMargin, (bounds().height - size.height) / 2}, size});
}

} // namespace preferences
