// A plug-in that has every optional method, so that every call of one is on record.
#include "VelaPlugin.h"

using namespace vela::plugin;

class RecorderView : public View {
public:
    using View::View;

    void draw(Canvas& canvas, Rect bounds) override { canvas.fill(bounds, colors::blue); }

    void appWillBecomeFirstResponder() {}
    void appBecomeActive() {}
    void appWillEnterBackground() {}
    void appDidEnterBackground() {}
    void tapTitleLabel() {}
    void velaInvoked() {}
    void velaDismissed() {}
};
VELA_PRINCIPAL_CLASS(RecorderView)
