// The cell of a switch row. A host that has switches of its own takes the colour from control().
#pragma once

#include "platform/preferences/PSTableCell.h"
#include "platform/toolkit/views/UISwitch.h"

namespace preferences {

class PSSwitchTableCell : public PSTableCell {
    RUNTIME_CLASS()
public:
    PSSwitchTableCell();

    /// Shows the row's value; turning it sends the row's setter.
    void initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) override;
    const std::shared_ptr<toolkit::UISwitch>& control() const { return control_; }
    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UISwitch> control_ = std::make_shared<toolkit::UISwitch>();
};

} // namespace preferences
