// The canvas that writes the commands down, one line of text each, for tests that compare what was drawn.
#pragma once

#include "platform/toolkit/rendering/Canvas.h"

#include <string>
#include <string_view>

namespace toolkit {

class RecordingCanvas final : public Canvas {
public:
    struct Command {
        std::string name;      // the method's name
        std::string arguments; // in the method's order; numbers without trailing zeros
        /// "name arguments" in one line.
        std::string line() const { return arguments.empty() ? name : name + " " + arguments; }
        friend bool operator==(const Command&, const Command&) = default;
    };

    const std::vector<Command>& commands() const { return commands_; }
    std::vector<std::string> lines() const;
    /// How many commands of this name there are.
    std::size_t count(std::string_view name) const;
    void clear() { commands_.clear(); }

    void save() override;
    void restore() override;
    void concat(const AffineTransform& transform) override;
    void clipRect(Rect rect) override;
    void clipRoundedRect(Rect rect, double radius) override;
    void fillRect(Rect rect, Color color) override;
    void fillRoundedRect(Rect rect, double radius, Color color) override;
    void fillPath(const Path& path, Color color) override;
    void strokePath(const Path& path, double width, LineCap cap, Color color) override;
    void fillLinearGradient(Rect rect, Point from, Point to, const std::vector<GradientStop>& stops) override;
    void fillRadialGradient(Rect rect, Point center, double radius,
                            const std::vector<GradientStop>& stops) override;
    void drawImage(const Image& image, Rect into, double opacity,
                   ImageFilter filter = ImageFilter::Smooth) override;
    void drawText(const TextLayout& text, Point topLeft, Color color) override;
    void drawShadow(Rect rect, double cornerRadius, double blur, Size offset, Color color) override;
    void drawBackdrop(Rect rect, double cornerRadius, BackdropStyle style) override;
    void beginGroup(Rect bounds, double opacity, GroupBlend blend) override;
    void endGroup() override;
    void endGroupMasked(Rect maskRect, Point from, Point to, const std::vector<GradientStop>& stops) override;

private:
    template <typename... Arguments>
    void add(const char* name, const Arguments&... arguments);
    std::vector<Command> commands_;
};

} // namespace toolkit
