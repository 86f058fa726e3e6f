// Layers for the tests of the compositor.
#pragma once

#include "platform/toolkit/layers/Compositor.h"

#include <functional>
#include <memory>
#include <vector>

namespace toolkit {

inline std::shared_ptr<Layer> makeLayer(Rect frame, std::optional<Color> background = std::nullopt) {
    auto layer = std::make_shared<Layer>();
    layer->setAnchorPoint({0, 0});
    layer->setBounds({{0, 0}, frame.size()});
    layer->setPosition(frame.origin());
    layer->setBackgroundColor(background);
    return layer;
}

/// Draws with a function and counts how often it had to.
class DrawnContent : public LayerDelegate {
public:
    using Draw = std::function<void(Canvas&, Rect)>;
    explicit DrawnContent(Draw draw) : draw_(std::move(draw)) {}
    bool drawsContent() const override { return true; }
    void drawContent(Canvas& canvas, Rect bounds) override {
        ++drawings;
        draw_(canvas, bounds);
    }
    int drawings = 0;

private:
    Draw draw_;
};

/// A shape whose progress is seen in the width of a bar.
class BarLayer : public Layer {
public:
    bool drawsShape() const override { return true; }
    void drawShape(Canvas& canvas) const override {
        const double end = std::get<double>(presented(LayerProperty::StrokeEnd));
        canvas.fillRect({bounds().x, bounds().y, bounds().width * end, bounds().height},
                        Color::rgba(0, 1, 0));
    }
};

} // namespace toolkit
