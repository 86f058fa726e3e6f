// Typing on the machine's keyboard goes to the phone as text.
#pragma once

#include "hosts/phone/Phone.h"

#include <gtk/gtk.h>

#include <functional>

namespace phone {

class KeyboardInput {
public:
    /// `turnDone` is called after everything that reached the phone.
    KeyboardInput(Phone& phone, GtkWidget* widget, std::function<void()> turnDone);
    KeyboardInput(const KeyboardInput&) = delete;
    KeyboardInput& operator=(const KeyboardInput&) = delete;

private:
    static gboolean keyPressed(GtkEventControllerKey*, guint key, guint, GdkModifierType modifiers,
                               gpointer self);
    static void committed(GtkIMContext*, const char* text, gpointer self);

    Phone& phone_;
    std::function<void()> turnDone_;
};

} // namespace phone
