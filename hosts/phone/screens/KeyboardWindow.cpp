#include "hosts/phone/screens/KeyboardWindow.h"

#include "hosts/phone/screens/ScreenController.h"
#include "platform/toolkit/views/TextInput.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>

using namespace toolkit;

namespace phone {

namespace {
constexpr double slideDuration = 0.25; // seconds

/// The window that is typed into; null when there is none.
const UIWindow* focusedWindow() {
    const auto* view = dynamic_cast<const UIView*>(TextInput::current());
    return view ? view->window() : nullptr;
}
} // namespace

runtime::Class& KeyboardWindow::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<KeyboardWindow>("KeyboardWindow", &SystemWindow::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(KeyboardWindow)

KeyboardWindow::KeyboardWindow(std::function<void(Rect)> frameChanged)
    : SystemWindow(levels::keyboard, WindowSecurity::BehindLockScreen),
      frameChanged_(std::move(frameChanged)) {
    keyboard_ = std::make_shared<Keyboard>([this] { setShown(false); });
    setRootViewController(std::make_shared<ScreenController>(keyboard_, orientationMaskAll));
    setFrame(hiddenFrame());
    focus_ = TextInput::addObserver([this](TextInput* input) {
        if (input)
            lieAboveFocus();
        setShown(input != nullptr);
    });
}

void KeyboardWindow::lieAboveFocus() {
    const UIWindow* window = focusedWindow();
    setWindowLevel(std::max(levels::keyboard, window ? window->windowLevel() + 1 : 0));
}

bool KeyboardWindow::_shouldCreateContextAsSecure() const {
    const UIWindow* window = focusedWindow();
    return window && window->_shouldCreateContextAsSecure();
}

Rect KeyboardWindow::shownFrame() const {
    const Size screen = UIScreen::mainScreen().bounds().size();
    const double height = Keyboard::heightFor(screen);
    return {0, screen.height - height, screen.width, height};
}

Rect KeyboardWindow::hiddenFrame() const {
    const Rect shown = shownFrame();
    return shown.offsetBy(0, shown.height);
}

Rect KeyboardWindow::visibleFrame() const {
    if (shown_)
        return shownFrame();
    const Rect hidden = hiddenFrame();
    return {0, hidden.y, hidden.width, 0};
}

void KeyboardWindow::setShown(bool shown) {
    if (shown == shown_)
        return;
    shown_ = shown;
    if (shown) {
        keyboard_->reset();
        lieAboveFocus();
        if (isHidden())
            setFrame(hiddenFrame());
        setHidden(false);
        layoutIfNeeded();
    } else if (TextInput* input = TextInput::current()) {
        input->resignFirstResponder();
    }
    const runtime::WeakPtr<KeyboardWindow> self(this);
    UIView::animate(
        slideDuration, 0, AnimationCurve::EaseInOut, [&] { setFrame(shown ? shownFrame() : hiddenFrame()); },
        [self, shown](bool finished) {
            if (finished && !shown && self && !self->isShown())
                self->setHidden(true);
        });
    frameChanged_(visibleFrame());
}

void KeyboardWindow::fitScreen() {
    setFrame(shown_ ? shownFrame() : hiddenFrame());
    if (!shown_)
        setHidden(true);
    frameChanged_(visibleFrame());
}

} // namespace phone
