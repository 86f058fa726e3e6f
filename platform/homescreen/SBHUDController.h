// Shows the volume display over everything else.
#pragma once

#include "platform/toolkit/views/UIView.h"

namespace homescreen {

class SBHUDController : public runtime::Object {
    RUNTIME_CLASS()
public:
    static SBHUDController& sharedHUDController();

    /// Shows `view`, and takes it away again after `delay` seconds.
    void presentHUDView(const std::shared_ptr<toolkit::UIView>& view, double delay);

private:
    void hostPresentHUDView(std::shared_ptr<toolkit::UIView> view, double delay);
};

} // namespace homescreen
