#include "platform/toolkit/layers/ShapeLayer.h"

namespace toolkit {

template <class Value>
void ShapeLayer::change(Value& member, Value value) {
    if (value == member)
        return;
    member = std::move(value);
    setNeedsDisplay();
}

void ShapeLayer::setPath(Path path) {
    change(path_, std::move(path));
}
void ShapeLayer::setFillColor(Color color) {
    change(fillColor_, color);
}
void ShapeLayer::setStrokeColor(Color color) {
    change(strokeColor_, color);
}
void ShapeLayer::setLineWidth(double width) {
    change(lineWidth_, width);
}
void ShapeLayer::setLineCap(LineCap cap) {
    change(lineCap_, cap);
}

bool ShapeLayer::drawsShape() const {
    const bool fills = !fillColor_.isClear();
    const bool strokes = !strokeColor_.isClear() && lineWidth_ > 0;
    return !path_.elements().empty() && (fills || strokes);
}

void ShapeLayer::drawShape(Canvas& canvas) const {
    if (!fillColor_.isClear())
        canvas.fillPath(path_, fillColor_);
    if (!strokeColor_.isClear() && lineWidth_ > 0)
        canvas.strokePath(path_, lineWidth_, lineCap_, strokeColor_);
}

} // namespace toolkit
