// The properties of labels, controls and text inputs as JSON, for state dumps. Apart from their own files to
// keep the JSON library out of those.
#include "platform/toolkit/views/UILabel.h"
#include "platform/toolkit/views/UISlider.h"
#include "platform/toolkit/views/UISwitch.h"
#include "platform/toolkit/views/UITextField.h"
#include "platform/toolkit/views/UITextView.h"

#include <nlohmann/json.hpp>

namespace toolkit {

namespace {
const char* nameOf(TextAlignment alignment) {
    switch (alignment) {
    case TextAlignment::Center:
        return "center";
    case TextAlignment::Right:
        return "right";
    case TextAlignment::Left:
        break;
    }
    return "left";
}

nlohmann::json describe(Color color) {
    return {color.red, color.green, color.blue, color.alpha};
}
} // namespace

void UILabel::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["fontSize"] = style_.font.size;
    properties["textColor"] = describe(textColor_);
    properties["textAlignment"] = nameOf(style_.alignment);
    properties["numberOfLines"] = style_.numberOfLines;
}

void UIControl::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["enabled"] = isEnabled();
    properties["highlighted"] = isHighlighted();
}

void UISwitch::describeProperties(nlohmann::json& properties) const {
    UIControl::describeProperties(properties);
    properties["on"] = isOn();
}

void UISlider::describeProperties(nlohmann::json& properties) const {
    UIControl::describeProperties(properties);
    properties["value"] = value();
    properties["minimumValue"] = minimumValue();
    properties["maximumValue"] = maximumValue();
}

void UITextField::describeProperties(nlohmann::json& properties) const {
    UIControl::describeProperties(properties);
    properties["placeholder"] = placeholder();
    properties["editing"] = isEditing();
    properties["fontSize"] = style_.font.size;
    properties["textColor"] = describe(textColor_);
}

void UITextView::describeProperties(nlohmann::json& properties) const {
    UIScrollView::describeProperties(properties);
    properties["editable"] = isEditable();
    properties["selectable"] = isSelectable();
    properties["fontSize"] = style_.font.size;
    properties["textColor"] = describe(textColor());
    properties["textAlignment"] = nameOf(style_.alignment);
}

} // namespace toolkit
