// Calls for frames while there is something new to show, and lets the window sleep while there is not.
#pragma once

#include <gtk/gtk.h>

#include <functional>

namespace gtk {

class FrameClock {
public:
    /// `frame` runs once a frame of the widget's display, after request(), for as long as it answers true.
    FrameClock(GtkWidget* widget, std::function<bool()> frame) : widget_(widget), frame_(std::move(frame)) {}
    ~FrameClock();
    FrameClock(const FrameClock&) = delete;
    FrameClock& operator=(const FrameClock&) = delete;

    void request();

private:
    static gboolean tick(GtkWidget*, GdkFrameClock*, gpointer self);

    GtkWidget* widget_;
    std::function<bool()> frame_;
    guint callback_ = 0;
};

} // namespace gtk
