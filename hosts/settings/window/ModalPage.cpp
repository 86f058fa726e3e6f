#include "hosts/settings/window/ModalPage.h"

#include "hosts/settings/window/Attached.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/Turn.h"

#include <adwaita.h>

namespace settings {

namespace {

using Action = std::function<void()>;

void run(const Action* action) {
    const Action kept = *action; // the page may go on the way
    kept();
    endTurn();
}

void closeOnEscape(GtkWidget* page, Action& close) {
    GtkEventController* shortcuts = gtk_shortcut_controller_new();
    GtkShortcutAction* action = gtk_callback_action_new(
        [](GtkWidget*, GVariant*, gpointer data) -> gboolean {
            run(static_cast<const Action*>(data));
            return TRUE;
        },
        &close, nullptr);
    gtk_shortcut_controller_add_shortcut(
        GTK_SHORTCUT_CONTROLLER(shortcuts),
        gtk_shortcut_new(gtk_keyval_trigger_new(GDK_KEY_Escape, GdkModifierType(0)), action));
    gtk_widget_add_controller(page, shortcuts);
}

} // namespace

ModalPage newModalPage(const std::string& title, const std::string& closeLabel, GtkWidget* content,
                       std::function<void()> close) {
    GtkWidget* page = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_widget_add_css_class(page, "modal-page");
    Action& action = attach<Action>(page, std::move(close));
    GtkWidget* bar = adw_header_bar_new();
    adw_header_bar_set_title_widget(ADW_HEADER_BAR(bar),
                                    adw_window_title_new(displayed(title).c_str(), nullptr));
    GtkWidget* button = gtk_button_new_with_label(closeLabel.c_str());
    g_signal_connect_swapped(button, "clicked", G_CALLBACK(run), &action);
    adw_header_bar_pack_start(ADW_HEADER_BAR(bar), button);
    closeOnEscape(page, action);
    gtk_box_append(GTK_BOX(page), bar);
    gtk_widget_set_vexpand(content, TRUE);
    gtk_box_append(GTK_BOX(page), content);
    return {page, bar};
}

} // namespace settings
