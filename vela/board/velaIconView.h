// A plug-in's picture with its name beneath, as on the home screen.
#pragma once

#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace vela {

class velaIconView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit velaIconView(toolkit::Rect frame = {});

    const std::shared_ptr<toolkit::UIImageView>& icon() const { return icon_; }
    const std::shared_ptr<toolkit::UILabel>& lbl() const { return lbl_; }

    /// Where an icon view lies in a tile of this size: in its middle.
    static toolkit::Rect frameInTile(toolkit::Size tile);

    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UIImageView> icon_;
    std::shared_ptr<toolkit::UILabel> lbl_;
};

} // namespace vela
