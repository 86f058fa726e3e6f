#include "vela/panels/leftController.h"

#include "vela/panels/darkingWindow.h"
#include "vela/startup/SpringBoardMessages.h"
#include "vela/stores/VelaSettingsManager.h"

#include "platform/toolkit/windows/UIApplication.h"

#include <numbers>

using namespace toolkit;

namespace vela {

runtime::Class& leftController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<leftController>("leftController", &UIWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(leftController)

leftController::leftController(Rect frame)
    : UIWindow(frame),
      blurView_(std::make_shared<UIVisualEffectView>(VisualEffect::blur(BlurEffectStyle::Dark))),
      strip_(GrabStrip::make(std::numbers::pi / 2)),
      board_(std::make_shared<velaBoard>()),
      controller_(std::make_shared<ViewController>(ViewController::LeftPanel)) {
    setAutoresizesSubviews(true);
    setUserInteractionEnabled(true);
    layer()->setMasksToBounds(true);
    blurView_->setUserInteractionEnabled(true);
    addSubview(blurView_);
    controller_->setWindow(this);
    setRootViewController(controller_);
    controller_->view()->setUserInteractionEnabled(true);
    controller_->view()->addSubview(strip_.container);
    controller_->view()->addSubview(board_);
}

void leftController::layoutSubviews() {
    blurView_->setFrame(bounds());
    const bool alternative = VelaSettingsManager::sharedInstance().isChevronsHidden();
    const auto window = messages::darkingWindow(UIApplication::sharedApplication());
    const auto darking = std::dynamic_pointer_cast<darkingWindow>(window);
    const double width = frame().width, height = frame().height;
    strip_.layOut(alternative, width - GrabStrip::width, height,
                  darking ? darking->leftChevron().get() : nullptr);
    board_->setFrame({0, 0, width - strip_.container->frame().width, height});
    controller_->view()->setFrame(bounds());
}

} // namespace vela
