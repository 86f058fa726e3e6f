// The sheet to write a message in: its text, and the buttons that send it or give it up.
#pragma once

#include "hosts/settings/window/ModalPage.h"
#include "platform/preferences/SLComposeViewController.h"

#include <memory>

namespace settings {

/// A new page. `send` gets the text when the user sends the message; the controller is told of either end.
GtkWidget* newComposePage(const std::shared_ptr<preferences::SLComposeViewController>& controller,
                          std::function<void(const std::string& text)> send);

} // namespace settings
