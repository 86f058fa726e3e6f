// The frame of a modal page: a bar with a button that closes it, and what it shows below.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>

namespace settings {

struct ModalPage {
    GtkWidget* widget; // new
    GtkWidget* bar;    // an AdwHeaderBar
};

/// `close` is what the button, of this label, and the Escape key do.
ModalPage newModalPage(const std::string& title, const std::string& closeLabel, GtkWidget* content,
                       std::function<void()> close);

} // namespace settings
