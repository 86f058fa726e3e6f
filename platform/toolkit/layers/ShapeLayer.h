// A layer that shows a path: filled, by the rule that counts windings, then stroked.
//
// The path is in the layer's own coordinates and may reach a little beyond its bounds.
#pragma once

#include "platform/toolkit/layers/Layer.h"

namespace toolkit {

class ShapeLayer : public Layer {
public:
    const Path& path() const { return path_; }
    void setPath(Path path);
    /// Clear: nothing is filled.
    Color fillColor() const { return fillColor_; }
    void setFillColor(Color color);
    /// Clear: nothing is stroked.
    Color strokeColor() const { return strokeColor_; }
    void setStrokeColor(Color color);
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width);
    LineCap lineCap() const { return lineCap_; }
    void setLineCap(LineCap cap);

    bool drawsShape() const override;
    void drawShape(Canvas& canvas) const override;

private:
    template <class Value>
    void change(Value& member, Value value);

    Path path_;
    Color fillColor_ = Color::black();
    Color strokeColor_ = Color::clear();
    double lineWidth_ = 1; // points
    LineCap lineCap_ = LineCap::Butt;
};

} // namespace toolkit
