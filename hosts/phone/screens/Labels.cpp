#include "hosts/phone/screens/Labels.h"

namespace phone {

std::shared_ptr<toolkit::UILabel> makeLabel(const std::string& text, toolkit::Font font, toolkit::Color color,
                                            toolkit::TextAlignment alignment) {
    auto label = std::make_shared<toolkit::UILabel>();
    label->setText(text);
    label->setFont(font);
    label->setTextColor(color);
    label->setTextAlignment(alignment);
    return label;
}

} // namespace phone
