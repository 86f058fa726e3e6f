// The music library while there is no music in it, and where music is looked for.
#pragma once

#include "platform/toolkit/views/UIImageView.h"
#include "platform/toolkit/views/UILabel.h"

namespace phone {

class EmptyMusicView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    EmptyMusicView();

    void setText(const std::string& text);
    void layoutSubviews() override;

private:
    std::shared_ptr<toolkit::UIImageView> picture_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UILabel> text_;
};

} // namespace phone
