#include "hosts/phone/screens/SystemWindow.h"

#include "platform/toolkit/windows/UIScreen.h"

namespace phone {

runtime::Class& SystemWindow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<SystemWindow>("SystemWindow", &UIWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(SystemWindow)

SystemWindow::SystemWindow(double level, WindowSecurity security)
    : UIWindow(toolkit::UIScreen::mainScreen().bounds()), security_(security) {
    setWindowLevel(level);
}

void SystemWindow::fitScreen() {
    const toolkit::Rect screen = toolkit::UIScreen::mainScreen().bounds();
    setBounds({0, 0, screen.width, screen.height});
    setCenter(screen.center());
}

} // namespace phone
