#include "hosts/phone/screens/ScreenController.h"

namespace phone {

runtime::Class& ScreenController::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<ScreenController>("ScreenController", &UIViewController::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(ScreenController)

ScreenController::ScreenController(std::shared_ptr<toolkit::UIView> view, unsigned supportedOrientations)
    : supportedOrientations_(supportedOrientations) {
    setView(std::move(view));
}

} // namespace phone
