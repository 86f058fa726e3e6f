#include "hosts/settings/window/Accessibility.h"

#include "hosts/settings/window/Text.h"

namespace settings {

void setAccessibleName(GtkWidget* widget, const std::string& name) {
    gtk_accessible_update_property(GTK_ACCESSIBLE(widget), GTK_ACCESSIBLE_PROPERTY_LABEL,
                                   displayed(name).c_str(), -1);
}

void setPassedOver(GtkWidget* page, bool passedOver) {
    gtk_accessible_update_state(GTK_ACCESSIBLE(page), GTK_ACCESSIBLE_STATE_HIDDEN, passedOver, -1);
}

} // namespace settings
