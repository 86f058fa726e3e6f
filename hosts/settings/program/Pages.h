// The root pages of the preference bundles on the device.
#pragma once

#include "platform/preferences/PSViewController.h"

#include <memory>
#include <vector>

namespace settings {

/// A new root page for every bundle whose class a loaded library has, in the order of the bundles' names.
/// There must be a device root.
std::vector<std::shared_ptr<preferences::PSViewController>> makeRootPages();

} // namespace settings
