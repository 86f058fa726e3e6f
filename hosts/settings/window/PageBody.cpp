#include "hosts/settings/window/PageBody.h"

#include "hosts/settings/window/GroupsBody.h"
#include "hosts/settings/window/ListBody.h"
#include "hosts/settings/window/RowContent.h"
#include "hosts/settings/window/Turn.h"
#include "platform/preferences/PSEditableListController.h"

namespace settings {

std::unique_ptr<PageBody> makePageBody(const std::shared_ptr<preferences::PSListController>& page) {
    if (ListBody::canShow(*page))
        return std::make_unique<ListBody>(page);
    return std::make_unique<GroupsBody>(page);
}

void addDeleteKey(GtkWidget* list) {
    GtkEventController* keys = gtk_event_controller_key_new();
    g_signal_connect(keys, "key-pressed",
                     G_CALLBACK(+[](GtkEventControllerKey* controller, guint key, guint, GdkModifierType,
                                    gpointer) -> gboolean {
                         if (key != GDK_KEY_Delete && key != GDK_KEY_KP_Delete)
                             return GDK_EVENT_PROPAGATE;
                         GtkWidget* widget =
                             gtk_event_controller_get_widget(GTK_EVENT_CONTROLLER(controller));
                         RowContent* row = RowContent::focusedIn(widget);
                         if (!row)
                             return GDK_EVENT_PROPAGATE;
                         row->performDeletion();
                         return GDK_EVENT_STOP;
                     }),
                     nullptr);
    gtk_widget_add_controller(list, keys);
}

void deleteRow(const std::weak_ptr<preferences::PSListController>& page,
               const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    if (const auto editable = std::dynamic_pointer_cast<preferences::PSEditableListController>(page.lock()))
        editable->performDeletionActionForSpecifier(specifier);
    endTurn();
}

} // namespace settings
