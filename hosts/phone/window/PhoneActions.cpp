#include "hosts/phone/window/PhoneActions.h"

namespace phone {

namespace {

constexpr const char* group = "phone";

std::string detailedName(const PhoneAction& action) {
    return std::string(group) + "." + action.name;
}

GtkShortcut* newShortcut(const PhoneAction& action) {
    return gtk_shortcut_new(gtk_shortcut_trigger_parse_string(action.accelerator.c_str()),
                            gtk_named_action_new(detailedName(action).c_str()));
}

std::string escaped(const std::string& text) {
    gchar* markup = g_markup_escape_text(text.c_str(), -1);
    std::string result = markup;
    g_free(markup);
    return result;
}

/// The list of shortcuts as GTK builds it from a description.
std::string shortcutsDescription(const std::vector<PhoneAction>& actions) {
    std::string text =
        "<interface><object class='GtkShortcutsWindow' id='shortcuts'><property name='modal'>1"
        "</property><child><object class='GtkShortcutsSection'>"
        "<property name='section-name'>all</property><property name='max-height'>12</property>";
    std::string section;
    for (const auto& action : actions) {
        if (action.section != section) {
            text += section.empty() ? "" : "</object></child>";
            section = action.section;
            text += "<child><object class='GtkShortcutsGroup'><property name='title'>" + escaped(section) +
                    "</property>";
        }
        text += "<child><object class='GtkShortcutsShortcut'><property name='title'>" +
                escaped(action.label) + "</property><property name='accelerator'>" +
                escaped(action.accelerator) + "</property></object></child>";
    }
    return text + "</object></child></object></child></object></interface>";
}

} // namespace

PhoneActions::PhoneActions(GtkWindow* window, std::vector<PhoneAction> actions,
                           std::function<void()> turnDone)
    : window_(window), actions_(std::move(actions)), turnDone_(std::move(turnDone)) {
    GSimpleActionGroup* actionGroup = g_simple_action_group_new();
    GtkEventController* shortcuts = gtk_shortcut_controller_new();
    // Ahead of the picture, which takes every other key as typing.
    gtk_event_controller_set_propagation_phase(shortcuts, GTK_PHASE_CAPTURE);
    for (const PhoneAction& entry : actions_) {
        GSimpleAction* action = g_simple_action_new(entry.name.c_str(), nullptr);
        g_object_set_data(G_OBJECT(action), group, const_cast<PhoneAction*>(&entry));
        g_signal_connect(action, "activate",
                         G_CALLBACK(+[](GSimpleAction* activated, GVariant*, gpointer self) {
                             static_cast<PhoneAction*>(g_object_get_data(G_OBJECT(activated), group))->run();
                             static_cast<PhoneActions*>(self)->turnDone_();
                         }),
                         this);
        g_action_map_add_action(G_ACTION_MAP(actionGroup), G_ACTION(action));
        g_object_unref(action);
        gtk_shortcut_controller_add_shortcut(GTK_SHORTCUT_CONTROLLER(shortcuts), newShortcut(entry));
    }
    gtk_widget_insert_action_group(GTK_WIDGET(window_), group, G_ACTION_GROUP(actionGroup));
    g_object_unref(actionGroup);
    gtk_widget_add_controller(GTK_WIDGET(window_), shortcuts);
}

GMenuModel* PhoneActions::newMenu() const {
    GMenu* menu = g_menu_new();
    GMenu* section = nullptr;
    for (std::size_t index = 0; index < actions_.size(); ++index) {
        const PhoneAction& action = actions_[index];
        if (index == 0 || action.section != actions_[index - 1].section) {
            section = g_menu_new();
            g_menu_append_section(menu, nullptr, G_MENU_MODEL(section));
            g_object_unref(section); // the menu keeps it
        }
        GMenuItem* item = g_menu_item_new(action.label.c_str(), detailedName(action).c_str());
        g_menu_item_set_attribute(item, "accel", "s", action.accelerator.c_str());
        g_menu_append_item(section, item);
        g_object_unref(item);
    }
    return G_MENU_MODEL(menu);
}

void PhoneActions::presentShortcuts() const {
    const std::string description = shortcutsDescription(actions_);
    GtkBuilder* builder = gtk_builder_new_from_string(description.c_str(), -1);
    auto* shortcuts = GTK_WINDOW(gtk_builder_get_object(builder, "shortcuts"));
    gtk_window_set_transient_for(shortcuts, window_);
    gtk_window_present(shortcuts);
    g_object_unref(builder);
}

} // namespace phone
