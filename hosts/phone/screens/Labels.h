// Shorthand for the labels that the phone's screens are full of.
#pragma once

#include "platform/toolkit/views/UILabel.h"

namespace phone {

std::shared_ptr<toolkit::UILabel> makeLabel(const std::string& text, toolkit::Font font, toolkit::Color color,
                                            toolkit::TextAlignment alignment = toolkit::TextAlignment::Left);

} // namespace phone
