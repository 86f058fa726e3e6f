// The canvas that a plug-in draws with: the toolkit's, behind the contract's interface.
//
// Made for one call; takes back at its end what the plug-in has saved and not restored.
#pragma once

#include "platform/plugins/Conversions.h"

namespace plugins {

class PluginCanvas final : public sdk::Canvas {
public:
    explicit PluginCanvas(toolkit::Canvas& canvas);
    ~PluginCanvas();
    PluginCanvas(const PluginCanvas&) = delete;
    PluginCanvas& operator=(const PluginCanvas&) = delete;

    void save() override;
    void restore() override;
    void translate(double x, double y) override;
    void scale(double x, double y) override;
    void rotate(double angle) override;
    void clip(sdk::Rect rect, double cornerRadius) override;
    void fill(sdk::Rect rect, sdk::Color color) override;
    void fillRounded(sdk::Rect rect, double cornerRadius, sdk::Color color) override;
    void fillEllipse(sdk::Rect rect, sdk::Color color) override;
    void fill(const sdk::Path& path, sdk::Color color) override;
    void fillGradient(sdk::Rect rect, sdk::Point from, sdk::Point to,
                      const std::vector<sdk::GradientStop>& stops) override;
    void stroke(const sdk::Path& path, double width, sdk::Color color, sdk::LineCap cap) override;
    void drawImage(const sdk::Image& image, sdk::Rect into, double opacity) override;
    void drawText(std::string_view text, sdk::Rect rect, const sdk::TextStyle& style,
                  sdk::Color color) override;

private:
    toolkit::Canvas& canvas_;
    int saved_ = 0;
};

} // namespace plugins
