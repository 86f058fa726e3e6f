// The page on which a radio station is entered: its name and its address.
#pragma once

#include "hosts/phone/music/RadioStation.h"
#include "platform/toolkit/views/UILabel.h"
#include "platform/toolkit/views/UITextField.h"

#include <optional>

namespace phone {

class StationForm : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    StationForm();

    /// Empties the fields and takes the text focus.
    void begin();
    void end();
    /// The station that was entered. Without one the page says what is missing.
    std::optional<RadioStation> station();
    void complain(const std::string& reason);

    const std::shared_ptr<toolkit::UITextField>& nameField() const { return name_; }
    const std::shared_ptr<toolkit::UITextField>& addressField() const { return address_; }

    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UIView> card_;
    std::shared_ptr<toolkit::UIView> hairline_;
    std::shared_ptr<toolkit::UILabel> nameLabel_;
    std::shared_ptr<toolkit::UILabel> addressLabel_;
    std::shared_ptr<toolkit::UITextField> name_;
    std::shared_ptr<toolkit::UITextField> address_;
    std::shared_ptr<toolkit::UILabel> hint_;
};

} // namespace phone
