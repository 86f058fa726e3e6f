// A window to touch, and a target that writes down what recognisers tell it.
#pragma once

#include "platform/toolkit/gestures/TouchDispatcher.h"
#include "platform/toolkit/gestures/UIPanGestureRecognizer.h"
#include "platform/toolkit/gestures/UITapGestureRecognizer.h"
#include "tests/support/ToolkitTest.h"

#include <functional>
#include <string>

namespace toolkit {

inline const char* nameOf(GestureState state) {
    static constexpr const char* names[] = {"Possible", "Began", "Changed", "Ended", "Cancelled", "Failed"};
    return names[static_cast<int>(state)];
}

class GestureTarget : public runtime::Object {
    RUNTIME_CLASS()
public:
    GestureTarget(std::string name, support::Transcript& transcript)
        : name_(std::move(name)), transcript_(transcript) {}
    void handleGesture(UIGestureRecognizer& recognizer) {
        transcript_.add(name_, " ", nameOf(recognizer.state()));
        if (whenTold)
            whenTold(recognizer);
    }
    void poke() { transcript_.add(name_, " poked"); }
    std::function<void(UIGestureRecognizer&)> whenTold;

private:
    std::string name_;
    support::Transcript& transcript_;
};

/// A view that writes down the touches that come to itself.
class TouchedView : public UIView {
public:
    TouchedView(Rect frame, std::string name, support::Transcript& transcript)
        : UIView(frame), name_(std::move(name)), transcript_(transcript) {}
    void touchesBegan(const Touch& touch) override { add(" began ", touch); }
    void touchesMoved(const Touch& touch) override { add(" moved ", touch); }
    void touchesEnded(const Touch& touch) override { add(" ended ", touch); }
    void touchesCancelled(const Touch& touch) override { add(" cancelled ", touch); }
    std::function<void()> whenTouched;

private:
    void add(const char* what, const Touch& touch) {
        transcript_.add(name_, what, touch.locationIn(this));
        if (whenTouched)
            whenTouched();
    }
    std::string name_;
    support::Transcript& transcript_;
};

class GestureTest : public support::ToolkitTest {
protected:
    GestureTest() { window->setBackgroundColor(Color::black()); }
    ~GestureTest() override { touches.cancelAll(1000); }

    template <class Recognizer>
    std::shared_ptr<Recognizer> recognizer(UIView& view, const std::shared_ptr<GestureTarget>& target) {
        auto made = std::make_shared<Recognizer>(target.get(), "handleGesture:");
        view.addGestureRecognizer(made);
        return made;
    }
    std::shared_ptr<GestureTarget> target(const std::string& name) {
        return std::make_shared<GestureTarget>(name, transcript);
    }
    void down(Point point, double time, std::int64_t finger = 1) { touches.touchDown(finger, point, time); }
    void move(Point point, double time, std::int64_t finger = 1) { touches.touchMove(finger, point, time); }
    void up(double time, std::int64_t finger = 1) { touches.touchUp(finger, time); }
    void cancel(double time, std::int64_t finger = 1) { touches.touchCancel(finger, time); }

    TouchDispatcher& touches = TouchDispatcher::shared();
    std::shared_ptr<UIWindow> window = shownWindow({0, 0, 375, 667});
};

} // namespace toolkit
