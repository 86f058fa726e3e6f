// A GTK widget that is one picture, drawn by whoever it is given.
#pragma once

#include <gtk/gtk.h>

#include <functional>

namespace phone {

/// Makes a widget that takes the keyboard focus and all the room it gets, and calls `draw` with its size in
/// GTK's units whenever it is to be drawn.
GtkWidget* newDeviceWidget(std::function<void(GtkSnapshot*, double width, double height)> draw);

/// The size that the window opens with, in GTK's units.
void setNaturalSize(GtkWidget* deviceWidget, int width, int height);

} // namespace phone
