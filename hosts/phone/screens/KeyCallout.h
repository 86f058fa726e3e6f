// The enlarged letter above a text key that is held.
#pragma once

#include "platform/toolkit/views/UILabel.h"

namespace phone {

class KeyCallout : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    KeyCallout();

    /// Shows `text` above a key's rectangle, both in the keyboard's coordinates.
    void show(const std::string& text, toolkit::Rect key, double keyboardWidth);
    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UILabel> label_;
};

} // namespace phone
