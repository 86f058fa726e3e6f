// Takes touches from the host and brings them to windows, views and recognisers.
//
// A touch stays with the view that it went down on. Several touches may be on the screen, each with its own
// identifier. Main thread only.
#pragma once

#include "platform/toolkit/gestures/Touch.h"

#include <map>
#include <memory>
#include <vector>

namespace toolkit {

class UIGestureRecognizer;

class TouchDispatcher {
public:
    static TouchDispatcher& shared();

    /// `identifier` tells fingers apart and is 0 or more, `timestamp` is in seconds of the run loop's time,
    /// `screenPoint` in points of the screen as it now stands.
    void touchDown(std::int64_t identifier, Point screenPoint, double timestamp);
    void touchMove(std::int64_t identifier, Point screenPoint, double timestamp);
    void touchUp(std::int64_t identifier, double timestamp);
    void touchCancel(std::int64_t identifier, double timestamp);
    void cancelAll(double timestamp);
    bool hasTouches() const { return !touches_.empty(); }

private:
    friend class UIGestureRecognizer;
    struct Active {
        Touch touch;
        std::vector<std::weak_ptr<UIGestureRecognizer>> recognizers;
        bool viewBegan = false;
        bool viewCancelled = false;
        bool over = false; // the finger is gone; nothing more is delivered
    };
    std::shared_ptr<Active> find(std::int64_t identifier) const;
    std::shared_ptr<Active> touchFollowedBy(const UIGestureRecognizer& recognizer) const;
    void collectRecognizers(Active& active, UIView& hit) const;
    void deliver(Active& active);
    void deliverToRecognizers(Active& active);
    void deliverToView(Active& active);
    void finish(std::int64_t identifier, TouchPhase phase, double timestamp);
    /// Called when a recogniser has begun or been recognised: fails its rivals, cancels the view's touch.
    void recognized(UIGestureRecognizer& winner);
    std::map<std::int64_t, std::shared_ptr<Active>> touches_;
};

} // namespace toolkit
