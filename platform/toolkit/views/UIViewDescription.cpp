// A view's properties as JSON, for state dumps. Apart from UIView.cpp to keep the JSON library out of it.
#include "platform/toolkit/views/UIView.h"

#include <nlohmann/json.hpp>

namespace toolkit {

namespace {

nlohmann::json describe(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

nlohmann::json describe(const std::optional<Color>& color) {
    if (!color)
        return nullptr;
    return {color->red, color->green, color->blue, color->alpha};
}

} // namespace

void UIView::describeProperties(nlohmann::json& properties) const {
    properties["frame"] = describe(frame());
    properties["bounds"] = describe(bounds());
    properties["center"] = {center().x, center().y};
    const AffineTransform t = transform();
    if (!t.isIdentity())
        properties["transform"] = {t.a, t.b, t.c, t.d, t.tx, t.ty};
    properties["alpha"] = alpha();
    properties["hidden"] = isHidden();
    properties["userInteractionEnabled"] = isUserInteractionEnabled();
    properties["backgroundColor"] = describe(backgroundColor());
    properties["clipsToBounds"] = clipsToBounds();
}

} // namespace toolkit
