// A part of a plug-in's view that the plug-in draws, and takes the touches of, by itself.
#pragma once

#include "platform/plugins/Handler.h"
#include "platform/plugins/PluginChild.h"
#include "platform/plugins/TouchedView.h"

namespace plugins {

/// The toolkit's view of such an area.
class DrawnAreaView final : public TouchedView {
    RUNTIME_CLASS()
public:
    explicit DrawnAreaView(CallerPointer caller);

    bool drawsContent() const override { return draw && !caller_->ended; }
    void drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) override;

    Handler<sdk::Canvas&, sdk::Rect> draw;
    Handler<const sdk::Touch&> touch;

private:
    void pass(const toolkit::Touch& event) override;
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
