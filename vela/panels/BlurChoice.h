// Which blur a panel gets when it is pulled in.
#pragma once

#include "platform/runtime/Object.h"
#include "platform/toolkit/rendering/Image.h"
#include "platform/toolkit/views/UIVisualEffectView.h"

#include <memory>

namespace vela::blur {

/// The screen as it is displayed now; a method of the host's application object.
std::shared_ptr<const toolkit::Image> getScreenImage(runtime::Object& self);

/// A bright colour is covered by a dark panel: dark above a mean of 0.5, light at 0.5 and below.
toolkit::BlurEffectStyle styleFor(const toolkit::Color& color);
/// The same for a picture as a whole; none counts as black.
toolkit::BlurEffectStyle styleFor(const toolkit::Image* screen);

/// The style that the "Blur" setting asks for; only "auto" takes a picture of the screen.
toolkit::BlurEffectStyle chosenStyle();

} // namespace vela::blur
