// A button of the host on a dark pill, so that its title is readable on any glass.
#pragma once

#include "VelaPlugin.h"

#include <functional>
#include <memory>
#include <string_view>

namespace notesplugin {

std::unique_ptr<vela::plugin::Button> makePillButton(vela::plugin::Container& container,
                                                     std::string_view title, vela::plugin::Color color,
                                                     std::function<void()> onTap);

} // namespace notesplugin
