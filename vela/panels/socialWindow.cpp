#include "vela/panels/socialWindow.h"

using namespace toolkit;

namespace vela {

runtime::Class& socialWindow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<socialWindow>("socialWindow", &UIWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(socialWindow)

socialWindow::socialWindow(Rect frame)
    : UIWindow(frame), controller_(std::make_shared<ViewController>(ViewController::Sharing)) {
    setBackgroundColor(Color::clear());
    setUserInteractionEnabled(false);
    controller_->setWindow(this);
    setRootViewController(controller_);
    layer()->setMasksToBounds(true);
    setHidden(false);
    setWindowLevel(0);
}

} // namespace vela
