// A view whose touches go to a plug-in, each finger from its beginning to its end.
//
// A finger that is lifted on it is the plug-in's: without a recogniser of its own, one of a view around it
// (the tap on a tile, say) would take the touch away at its end. Drags around it still take the finger over;
// the plug-in then hears that the touch was cancelled.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <set>

namespace plugins {

class TouchedView : public toolkit::UIView {
public:
    TouchedView();

    void touchesBegan(const toolkit::Touch& touch) final;
    void touchesMoved(const toolkit::Touch& touch) final;
    void touchesEnded(const toolkit::Touch& touch) final;
    void touchesCancelled(const toolkit::Touch& touch) final;

protected:
    virtual void pass(const toolkit::Touch& touch) = 0;

private:
    /// Passes the last of a finger on, if it has not been passed on before.
    void finish(const toolkit::Touch& touch);

    std::set<std::int64_t> fingers_;
};

} // namespace plugins
