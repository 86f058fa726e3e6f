// A part of a plug-in's view that the plug-in draws, and takes the touches of, by itself.
#pragma once

#include "platform/plugins/Handler.h"
#include "platform/plugins/PluginChild.h"

namespace plugins {

/// The toolkit's view of such an area.
class DrawnAreaView final : public toolkit::UIView {
    RUNTIME_CLASS()
public:
    explicit DrawnAreaView(CallerPointer caller);

    bool drawsContent() const override { return draw && !caller_->ended; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;
    void touchesBegan(const toolkit::Touch& touch) override { tell(touch); }
    void touchesMoved(const toolkit::Touch& touch) override { tell(touch); }
    void touchesEnded(const toolkit::Touch& touch) override { tell(touch); }
    void touchesCancelled(const toolkit::Touch& touch) override { tell(touch); }

    Handler<sdk::Canvas&, sdk::Rect> draw;
    Handler<const sdk::Touch&> touch;

private:
    void tell(const toolkit::Touch& event);
    CallerPointer caller_;
};

class PluginDrawnArea final : public PluginChild<sdk::DrawnArea, DrawnAreaView> {
public:
    PluginDrawnArea(toolkit::UIView& parent, CallerPointer caller);
    ~PluginDrawnArea() override;

    void onDraw(std::function<void(sdk::Canvas&, sdk::Rect)> handler) override;
    void onTouch(std::function<void(const sdk::Touch&)> handler) override;
    void setNeedsDisplay() override;
};

} // namespace plugins
