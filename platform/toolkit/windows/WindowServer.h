// All windows of the process: their order, their layout at the end of each turn, and the frames they make.
//
// Does not own the windows. Main thread only.
#pragma once

#include "platform/foundation/Handle.h"
#include "platform/toolkit/layers/Compositor.h"
#include "platform/toolkit/windows/SeparateWindows.h"
#include "platform/toolkit/windows/UIWindow.h"

#include <vector>

namespace toolkit {

class WindowServer {
public:
    static WindowServer& shared();

    /// Back to front, hidden ones included.
    std::vector<UIWindow*> windows() const;
    /// The host's own front window, whose coordinates gestures are read in; null when there is none.
    UIWindow* keyWindow() const { return keyWindow_.get(); }
    void setKeyWindow(UIWindow* window) { keyWindow_ = window; }

    /// The top-most window that takes a touch at a point of the screen, or null. While `secureOnly` is on
    /// (the phone is locked) only windows that may lie over the lock screen are asked and shown, and the lock
    /// screen's own.
    UIWindow* windowAt(Point screenPoint) const;
    void setSecureOnly(bool secureOnly);
    bool isSecureOnly() const { return secureOnly_; }

    /// Lays out every marked view now. Happens by itself at the end of each turn of the main loop.
    void layoutIfNeeded();
    /// Hooks into the current main loop; to be called whenever another one has been made the main one.
    void attachToMainRunLoop();

    /// Whether anything on screen differs from the last composed frame.
    bool needsFrame() const;
    /// Lays out and composes what changed.
    Compositor::Frame composeFrame();
    Compositor& compositor() { return compositor_; }
    /// Instead of composeFrame(), for a host whose windows are surfaces of their own: lays out, paints each
    /// window by itself, and answers those that are seen, back to front. Valid until the next call.
    const std::vector<SeparateWindow>& composeSeparately(OffScreen offScreen = OffScreen::Ignored);
    /// Lets go of whatever has been painted, once nothing of it is seen any more; what composeSeparately()
    /// answered goes with it.
    void forgetPictures();

    /// Swaps the screen's bounds for an interface orientation and tells every window's root view controller,
    /// within an animation of `duration` seconds.
    void setInterfaceOrientation(int orientation, double duration);

private:
    friend class UIWindow;
    WindowServer() = default;
    void add(UIWindow& window);
    void remove(UIWindow& window);
    /// Not hidden, and allowed over the lock screen while that is up.
    bool mayShow(const UIWindow& window) const;
    std::vector<runtime::WeakPtr<UIWindow>> heldWindows() const;
    std::uint64_t nextShownOrder() { return ++shownCounter_; }

    std::vector<UIWindow*> windows_;
    runtime::WeakPtr<UIWindow> keyWindow_;
    std::uint64_t shownCounter_ = 0;
    bool secureOnly_ = false;
    Compositor compositor_;
    SeparateWindows separateWindows_;
    std::uint64_t composedChange_ = 0;
    foundation::Handle layoutHook_;
};

} // namespace toolkit
