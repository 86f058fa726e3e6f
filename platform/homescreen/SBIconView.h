// An icon of the home screen, as far as others ask for its measures.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace homescreen {

class SBIconView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    using UIView::UIView;
    /// Size of an icon's picture, in points.
    static toolkit::Size defaultIconImageSize();
};

} // namespace homescreen
