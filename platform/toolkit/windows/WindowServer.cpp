#include "platform/toolkit/windows/WindowServer.h"

#include "platform/foundation/RunLoop.h"
#include "platform/toolkit/animation/Animation.h"
#include "platform/toolkit/rendering/CairoCanvas.h"
#include "platform/toolkit/views/UIViewController.h"
#include "platform/toolkit/windows/UIScreen.h"

#include <algorithm>
#include <utility>

namespace toolkit {

namespace {

/// One window's layout may mark another's; two that mark each other for ever must not stop the turn.
constexpr int mostLayoutRounds = 10;

constexpr bool isLandscape(int orientation) {
    return orientation == 3 || orientation == 4;
}

/// Collects what the controllers want done along with a rotation.
class RotationCoordinator : public TransitionCoordinator {
public:
    void animateAlongside(std::function<void()> alongside, std::function<void()> completion) override {
        if (alongside)
            alongside_.push_back(std::move(alongside));
        if (completion)
            completions_.push_back(std::move(completion));
    }

    void run(double duration) {
        UIView::animate(
            duration, 0, AnimationCurve::EaseInOut,
            [this] {
                for (const auto& block : alongside_)
                    block();
            },
            // The coordinator is gone by then. The rotation has happened, taken over by another one or not.
            [completions = std::move(completions_)](bool) {
                for (const auto& block : completions)
                    block();
            });
    }

private:
    std::vector<std::function<void()>> alongside_;
    std::vector<std::function<void()>> completions_;
};

} // namespace

WindowServer& WindowServer::shared() {
    // Never torn down: windows with static storage sign off here at exit.
    static auto& server = *new WindowServer;
    return server;
}

void WindowServer::add(UIWindow& window) {
    windows_.push_back(&window);
}

void WindowServer::remove(UIWindow& window) {
    std::erase(windows_, &window);
    Layer::noteChange();
}

std::vector<UIWindow*> WindowServer::windows() const {
    auto ordered = windows_;
    std::stable_sort(ordered.begin(), ordered.end(), [](const UIWindow* a, const UIWindow* b) {
        return std::pair(a->windowLevel(), a->shownOrder()) < std::pair(b->windowLevel(), b->shownOrder());
    });
    return ordered;
}

bool WindowServer::mayShow(const UIWindow& window) const {
    return !window.isHidden() && (!secureOnly_ || window._shouldCreateContextAsSecure());
}

UIWindow* WindowServer::windowAt(Point screenPoint) const {
    const auto ordered = windows();
    for (auto window = ordered.rbegin(); window != ordered.rend(); ++window)
        if (mayShow(**window) && (*window)->takesTouchAt((*window)->convertPointFrom(screenPoint, nullptr)))
            return *window;
    return nullptr;
}

void WindowServer::setSecureOnly(bool secureOnly) {
    if (secureOnly == secureOnly_)
        return;
    secureOnly_ = secureOnly;
    Layer::noteChange();
}

/// The windows as they stand, for loops in which windows may come and go.
std::vector<runtime::WeakPtr<UIWindow>> WindowServer::heldWindows() const {
    const auto ordered = windows();
    return {ordered.begin(), ordered.end()};
}

void WindowServer::layoutIfNeeded() {
    for (int round = 0; round < mostLayoutRounds; ++round) {
        bool marked = false;
        for (const auto& held : heldWindows()) {
            UIWindow* window = held.get();
            if (!window || !window->treeNeedsLayout())
                continue;
            marked = true;
            window->layoutIfNeeded();
        }
        if (!marked)
            return;
    }
}

void WindowServer::attachToMainRunLoop() {
    layoutHook_ =
        foundation::RunLoop::main().addTurnHook(foundation::TurnPhase::Layout, [this] { layoutIfNeeded(); });
}

bool WindowServer::needsFrame() const {
    return composedChange_ != Layer::changeCount() || AnimationEngine::shared().isAnimating();
}

Compositor::Frame WindowServer::composeFrame() {
    layoutIfNeeded();
    // Read before composing: what drawing changes is due in the next frame.
    composedChange_ = Layer::changeCount();
    std::vector<std::shared_ptr<Layer>> roots;
    for (const UIWindow* window : windows())
        if (mayShow(*window))
            roots.push_back(window->layer());
    const UIScreen& screen = UIScreen::mainScreen();
    return compositor_.compose(roots, screen.bounds().size(), screen.scale());
}

const std::vector<SeparateWindow>& WindowServer::composeSeparately(OffScreen offScreen) {
    layoutIfNeeded();
    composedChange_ = Layer::changeCount();
    auto shown = windows();
    std::erase_if(shown, [this](const UIWindow* window) { return !mayShow(*window); });
    const UIScreen& screen = UIScreen::mainScreen();
    return separateWindows_.update(shown, screen.bounds().size(), screen.scale(), offScreen);
}

void WindowServer::forgetPictures() {
    separateWindows_.forget();
    CairoCanvas::forgetSparePixels();
}

void WindowServer::setInterfaceOrientation(int orientation, double duration) {
    UIScreen& screen = UIScreen::mainScreen();
    const Size size = screen.bounds().size();
    if (isLandscape(orientation) != (size.width > size.height) && size.width != size.height) {
        screen.setSize({size.height, size.width});
        Layer::noteChange();
    }
    RotationCoordinator coordinator;
    for (const auto& held : heldWindows())
        if (UIWindow* window = held.get())
            if (const auto controller = window->rootViewController())
                controller->viewWillTransitionToSize(screen.bounds().size(), coordinator);
    coordinator.run(duration);
}

} // namespace toolkit
