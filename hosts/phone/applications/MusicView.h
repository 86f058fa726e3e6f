// The music library while there is no music in it.
#pragma once

#include "hosts/phone/applications/NavigationBar.h"
#include "platform/toolkit/views/UIImageView.h"

namespace phone {

class MusicView : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    MusicView();

    void layoutSubviews() override;

private:
    std::shared_ptr<NavigationBar> bar_;
    std::shared_ptr<toolkit::UIImageView> picture_;
    std::shared_ptr<toolkit::UILabel> title_;
    std::shared_ptr<toolkit::UILabel> text_;
};

} // namespace phone
