// A picture as a view. Touches pass through it unless interaction is switched on.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace toolkit {

class UIImageView : public UIView {
    RUNTIME_CLASS()
public:
    explicit UIImageView(Rect frame = {}, std::shared_ptr<const Image> image = nullptr);

    const std::shared_ptr<const Image>& image() const { return layer()->contents(); }
    void setImage(std::shared_ptr<const Image> image);
    void setContentMode(ContentGravity mode) { layer()->setContentGravity(mode); }

    Size sizeThatFits(Size size) const override;
};

} // namespace toolkit
