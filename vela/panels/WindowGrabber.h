// A thin, unseen window along one screen edge from which a panel is pulled in, and the rules by which the
// panel follows the finger, completes or slides back. leftWindowGrabber and rightWindowGrabber say what
// differs.
//
// The same handler serves three recognisers: the strip's own, the one on the open panel's grab strip, and the
// one on the dimmed area. Positions are computed in double precision; what a field keeps is rounded to
// single. Points and seconds; locations are read in the key window's coordinates. Main thread only.
#pragma once

#include "platform/homescreen/SBChevronView.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/views/UIVisualEffectView.h"
#include "platform/toolkit/windows/UIWindow.h"
#include "vela/startup/ViewController.h"

#include <memory>

namespace vela {

class darkingWindow;

class WindowGrabber : public toolkit::UIWindow, public toolkit::GestureRecognizerDelegate {
    RUNTIME_CLASS()
public:
    /// A release at this speed or faster, in points a second, is a fling.
    static constexpr float flingSpeed = 500;
    /// A fling's animation takes the time for this many points at the release speed.
    static constexpr float flingPoints = 100;
    static constexpr float settleDuration = 0.3f; // seconds

    const std::shared_ptr<darkingWindow>& darking() const { return darking_; }
    void setDarking(std::shared_ptr<darkingWindow> darking) { darking_ = std::move(darking); }
    const std::shared_ptr<ViewController>& contr() const { return contr_; }
    void setContr(std::shared_ptr<ViewController> controller) { contr_ = std::move(controller); }
    /// Whether the panel stands open: from the end of a show animation to the end of a dismissal.
    bool showed() const { return showed_; }
    void setShowed(bool showed) { showed_ = showed; }

    /// The view whose coordinates touches are read in: the key window.
    toolkit::UIView* locationView() const;
    /// Whether the pan runs along the screen's y axis: the interface has not turned with the device.
    bool wantY() const;
    /// Whether the application in front is locked to portrait.
    bool isFuckingInverted() const;

    void handlePan(toolkit::UIGestureRecognizer& recognizer);
    /// Brings the panel to `x` and marks it shown when the animation has finished.
    void showControllerWithDuration(float duration, float x);
    /// Takes the panel to `x` and hides it when the animation has finished.
    void dismissControllerWithDuration(float duration, float x);
    void dismissControllerWithTap();

    bool gestureRecognizerShouldRecognizeSimultaneously(toolkit::UIGestureRecognizer&,
                                                        toolkit::UIGestureRecognizer&) override {
        return false;
    }
    bool _shouldCreateContextAsSecure() const override { return true; }
    void describeProperties(nlohmann::json& properties) const override;

protected:
    WindowGrabber(toolkit::Rect frame, ViewController::Type type);

    /// Where the panel may be: `span` is the screen's extent along its travel, `width` its own.
    struct Travel {
        double span;
        double width;
    };

    virtual toolkit::UIWindow& panel() const = 0;
    virtual homescreen::SBChevronView& panelChevron() const = 0;
    virtual WindowGrabber* otherGrabber() const = 0;
    /// The side's number for darkingWindow::setTouchController.
    virtual std::int32_t side() const = 0;
    /// +1 where opening moves towards greater x, -1 otherwise.
    virtual int openingDirection() const = 0;
    virtual double openPosition(Travel travel) const = 0;
    virtual double closedPosition(Travel travel) const = 0;
    /// Holds a followed position at the open one; there is no bound on the other side.
    virtual double heldAtOpen(double x, Travel travel) const = 0;
    /// Whether a slow release at `x` opens the panel; half way does.
    virtual bool opensFrom(double x, Travel travel) const = 0;
    virtual double dimmingAlpha(double x, Travel travel) const = 0;

    enum class Motion { Following, Showing, Dismissing };
    virtual toolkit::Rect dimmingFrame(double x, double height, Travel travel, Motion motion) const = 0;
    virtual void placeDimmingChevron(double x, Motion motion) const = 0;
    virtual void chooseDimmingChevron(bool alternative) const = 0;
    virtual void applyBlur(toolkit::BlurEffectStyle style) const = 0;
    /// Called on every Began before anything else.
    virtual void panBegan() {}
    virtual void announce(bool /*invoked*/) {}

    /// setController: the panel's level less one, and a recogniser on its grab strip.
    void serve(toolkit::UIWindow& panel, toolkit::UIView& grabberContainer);

private:
    Travel travel() const;
    bool panAlongY() const { return wantY() && !isFuckingInverted(); }
    double locationAlongPan(const toolkit::UIPanGestureRecognizer& pan) const;
    void begin(const toolkit::UIPanGestureRecognizer& pan);
    /// Takes in location and velocity; answers how far the finger has moved, positive towards smaller x.
    double measure(const toolkit::UIPanGestureRecognizer& pan);
    void follow(double delta);
    void release(double delta);
    void moveTo(double x, double alpha, Motion motion);
    void dismiss(double duration, double x);

    float start_ = 0;
    float end_ = 0;
    float velocity_ = 0;
    float last_ = 0;
    bool showed_ = false;
    std::shared_ptr<darkingWindow> darking_;
    std::shared_ptr<ViewController> contr_;
};

} // namespace vela
