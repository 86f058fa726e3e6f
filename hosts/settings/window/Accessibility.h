// What assistive technology is told of widgets.
#pragma once

#include <gtk/gtk.h>

#include <string>

namespace settings {

/// What a screen reader calls the widget. Any text.
void setAccessibleName(GtkWidget* widget, const std::string& name);
/// Whether it is passed over: GTK itself tells of pages that others lie over as well.
void setPassedOver(GtkWidget* page, bool passedOver);

} // namespace settings
