// The window that shows a volume display over everything and takes it away again.
#pragma once

#include "hosts/phone/screens/SystemWindow.h"
#include "platform/foundation/Handle.h"

namespace phone {

class VolumeWindow : public SystemWindow {
    RUNTIME_CLASS()
public:
    VolumeWindow();

    /// Shows `view`, in place of what is shown, for `delay` seconds.
    void present(std::shared_ptr<toolkit::UIView> view, double delay);
    void layoutSubviews() override;

private:
    void fadeAway();

    std::shared_ptr<toolkit::UIView> shown_;
    foundation::Handle dismissal_;
};

} // namespace phone
