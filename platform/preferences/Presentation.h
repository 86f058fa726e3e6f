// Presenting pages and opening addresses through the host's port; nothing happens while there is none.
#pragma once

#include "platform/toolkit/views/UIViewController.h"

#include <functional>
#include <memory>
#include <string>

namespace preferences {

/// presentViewController:animated:completion: of the key window's root view controller.
void presentFromKeyWindow(const std::shared_ptr<toolkit::UIViewController>& controller, bool animated,
                          std::function<void()> completion = {});
/// dismissViewControllerAnimated:completion: of a presented controller.
void dismiss(toolkit::UIViewController& controller, bool animated, std::function<void()> completion = {});

bool canOpenUrl(const std::string& url);
void openUrl(const std::string& url);

} // namespace preferences
