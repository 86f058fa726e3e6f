// Objects that live as long as a widget does.
#pragma once

#include <gtk/gtk.h>

#include <utility>

namespace settings {

/// Makes a T that goes when `widget` is destroyed, before its parts are taken down.
template <class T, class... Arguments>
T& attach(GtkWidget* widget, Arguments&&... arguments) {
    auto* object = new T(std::forward<Arguments>(arguments)...);
    g_signal_connect(widget, "destroy",
                     G_CALLBACK(+[](GtkWidget*, gpointer attached) { delete static_cast<T*>(attached); }),
                     object);
    return *object;
}

} // namespace settings
