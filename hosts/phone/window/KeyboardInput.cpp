#include "hosts/phone/window/KeyboardInput.h"

namespace phone {

KeyboardInput::KeyboardInput(Phone& phone, GtkWidget* widget, std::function<void()> turnDone)
    : phone_(phone), turnDone_(std::move(turnDone)) {
    GtkEventController* keys = gtk_event_controller_key_new();
    // The input method makes one text of accents, compositions and whole words.
    GtkIMContext* method = gtk_im_multicontext_new();
    g_signal_connect(method, "commit", G_CALLBACK(committed), this);
    gtk_im_context_set_client_widget(method, widget);
    gtk_event_controller_key_set_im_context(GTK_EVENT_CONTROLLER_KEY(keys), method);
    g_object_unref(method);
    g_signal_connect(keys, "key-pressed", G_CALLBACK(keyPressed), this);
    gtk_widget_add_controller(widget, keys);
}

gboolean KeyboardInput::keyPressed(GtkEventControllerKey*, guint key, guint, GdkModifierType modifiers,
                                   gpointer data) {
    auto* self = static_cast<KeyboardInput*>(data);
    if ((modifiers & (GDK_CONTROL_MASK | GDK_ALT_MASK | GDK_SUPER_MASK)) != 0)
        return GDK_EVENT_PROPAGATE;
    if (key == GDK_KEY_BackSpace)
        self->phone_.typeBackspace();
    else if (key == GDK_KEY_Return || key == GDK_KEY_KP_Enter)
        self->phone_.typeText("\n");
    else
        return GDK_EVENT_PROPAGATE;
    self->turnDone_();
    return GDK_EVENT_STOP;
}

void KeyboardInput::committed(GtkIMContext*, const char* text, gpointer data) {
    auto* self = static_cast<KeyboardInput*>(data);
    self->phone_.typeText(text);
    self->turnDone_();
}

} // namespace phone
