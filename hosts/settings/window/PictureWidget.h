// A GTK widget that is a picture with native controls laid over parts of it.
#pragma once

#include <gtk/gtk.h>

#include <functional>

namespace settings {

/// What the widget asks of whoever made it. Sizes and places are in GTK's units.
struct PictureWidgetHooks {
    std::function<int(int width)> heightForWidth;
    /// The widget has its size; controls over it are to be allocated.
    std::function<void(int width, int height)> resized;
    std::function<void(GtkSnapshot*, int width, int height)> draw;
};

/// `role` is what a screen reader calls it. Controls are its children, by gtk_widget_set_parent().
GtkWidget* newPictureWidget(GtkAccessibleRole role, PictureWidgetHooks hooks);

} // namespace settings
