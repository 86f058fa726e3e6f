#include "hosts/gtk/FrameClock.h"

namespace gtk {

FrameClock::~FrameClock() {
    if (callback_ != 0)
        gtk_widget_remove_tick_callback(widget_, callback_);
}

void FrameClock::request() {
    if (callback_ == 0)
        callback_ = gtk_widget_add_tick_callback(widget_, tick, this, nullptr);
}

gboolean FrameClock::tick(GtkWidget*, GdkFrameClock*, gpointer data) {
    auto* self = static_cast<FrameClock*>(data);
    if (self->frame_())
        return G_SOURCE_CONTINUE;
    self->callback_ = 0;
    return G_SOURCE_REMOVE;
}

} // namespace gtk
