#include "EditorLayout.h"

#include "Look.h"

#include <algorithm>

namespace notesplugin {

using vela::plugin::Rect;
using vela::plugin::Size;

namespace {
constexpr double lowestText = 96; // below this the bar goes
constexpr double actionWidth = 76;
constexpr double backWidth = 84;

double keyboardHeight(Size panel) {
    const bool portrait = panel.height >= panel.width;
    const bool large = std::max(panel.width, panel.height) > 800;
    return large ? (portrait ? 264 : 352) : (portrait ? 216 : 162);
}

EditorLayout withoutBar(Size panel, double height) {
    EditorLayout layout;
    layout.barHidden = true;
    const double left = std::max(panel.width - look::margin - actionWidth, 0.0);
    layout.action = {left, 0, actionWidth, look::barHeight};
    layout.text = {look::margin, 0, std::max(left - look::gap - look::margin, 0.0),
                   std::max(height, look::barHeight)};
    return layout;
}
} // namespace

EditorLayout layOutEditor(Size panel, bool editing) {
    const double height = std::max(panel.height - (editing ? keyboardHeight(panel) : 0), 0.0);
    const double top = look::barHeight + look::gap;
    if (editing && height - top < lowestText)
        return withoutBar(panel, height);
    EditorLayout layout;
    const double width = std::max(panel.width - 2 * look::margin, 0.0);
    layout.back = {look::margin, 0, backWidth, look::barHeight};
    layout.action = {look::margin + width - actionWidth, 0, actionWidth, look::barHeight};
    const double statusLeft = layout.back.right() + look::gap;
    layout.status = {statusLeft, 0, std::max(layout.action.x - look::gap - statusLeft, 0.0), look::barHeight};
    layout.text = {look::margin, top, width, std::max(height - top, 0.0)};
    return layout;
}

} // namespace notesplugin
