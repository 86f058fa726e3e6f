#include "platform/plugins/PluginDrawnArea.h"

#include "platform/plugins/PluginCanvas.h"

namespace plugins {

runtime::Class& DrawnAreaView::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<DrawnAreaView>("DrawnAreaView", &toolkit::UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(DrawnAreaView)

DrawnAreaView::DrawnAreaView(CallerPointer caller) : caller_(std::move(caller)) {
    setUserInteractionEnabled(false);
}

void DrawnAreaView::drawContent(toolkit::Canvas& canvas, toolkit::Rect bounds) {
    PluginCanvas pluginCanvas(canvas);
    draw.call(caller_, "a drawing handler", pluginCanvas, {0, 0, bounds.width, bounds.height});
}

void DrawnAreaView::pass(const toolkit::Touch& event) {
    touch.call(caller_, "a touch handler", toPlugin(event, *this));
}

PluginDrawnArea::PluginDrawnArea(toolkit::UIView& parent, CallerPointer caller)
    : PluginChild(parent, caller, std::make_shared<DrawnAreaView>(caller)) {}

PluginDrawnArea::~PluginDrawnArea() {
    // A touch under way keeps the view for a moment longer.
    view().draw.set(nullptr);
    view().touch.set(nullptr);
}

void PluginDrawnArea::onDraw(std::function<void(sdk::Canvas&, sdk::Rect)> handler) {
    view().draw.set(std::move(handler));
    view().setNeedsDisplay();
}

void PluginDrawnArea::onTouch(std::function<void(const sdk::Touch&)> handler) {
    view().touch.set(std::move(handler));
    view().setUserInteractionEnabled(static_cast<bool>(view().touch));
}

void PluginDrawnArea::setNeedsDisplay() {
    view().setNeedsDisplay();
}

} // namespace plugins
