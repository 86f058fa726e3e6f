// A scroll view's properties as JSON, for state dumps. Apart from UIScrollView.cpp to keep the JSON library
// out of it.
#include "platform/toolkit/scrolling/UIScrollView.h"

#include <nlohmann/json.hpp>

namespace toolkit {

void UIScrollView::describeProperties(nlohmann::json& properties) const {
    UIView::describeProperties(properties);
    properties["contentSize"] = {contentSize_.width, contentSize_.height};
    properties["contentInset"] = {contentInset_.top, contentInset_.left, contentInset_.bottom,
                                  contentInset_.right};
    properties["scrollEnabled"] = isScrollEnabled();
    properties["dragging"] = isDragging();
    properties["decelerating"] = isDecelerating();
}

} // namespace toolkit
