#include "hosts/settings/window/ListBody.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Measures.h"
#include "hosts/settings/window/RowContent.h"
#include "hosts/settings/window/Text.h"
#include "platform/preferences/PSSwitchTableCell.h"
#include "platform/runtime/Class.h"

#include <adwaita.h>

#include <algorithm>

namespace settings {

using preferences::PSCellType;
using preferences::PSListController;
using preferences::PSSpecifier;

namespace {

bool isCommonRow(const PSSpecifier& specifier) {
    return !specifier.isGroup() && specifier.cellType() != PSCellType::Slider &&
           (specifier.cellType() == PSCellType::Switch ||
            specifier.textForKey(preferences::keys::cellClass).empty());
}

} // namespace

bool ListBody::canShow(PSListController& page) {
    const auto& specifiers = page.specifiers();
    return std::all_of(specifiers.begin(), specifiers.end(),
                       [](const auto& specifier) { return isCommonRow(*specifier); });
}

ListBody::ListBody(const std::shared_ptr<PSListController>& page)
    : page_(page), names_(gtk_string_list_new(nullptr)), scroller_(gtk_scrolled_window_new()) {
    GtkListItemFactory* factory = gtk_signal_list_item_factory_new();
    g_signal_connect(factory, "setup", G_CALLBACK(setUp), this);
    g_signal_connect(factory, "bind", G_CALLBACK(bind), this);
    g_signal_connect(factory, "unbind", G_CALLBACK(unbind), this);
    GtkNoSelection* model = gtk_no_selection_new(G_LIST_MODEL(g_object_ref(names_)));
    list_ = gtk_list_view_new(GTK_SELECTION_MODEL(model), factory);
    gtk_list_view_set_single_click_activate(GTK_LIST_VIEW(list_), TRUE);
    gtk_list_view_set_show_separators(GTK_LIST_VIEW(list_), TRUE);
    setAccessibleName(list_, page->title());
    g_signal_connect(list_, "activate", G_CALLBACK(+[](GtkListView* list, guint, gpointer) {
                         if (RowContent* row = RowContent::focusedIn(GTK_WIDGET(list)))
                             row->activate();
                     }),
                     nullptr);
    addDeleteKey(list_);
    GtkWidget* clamp = adw_clamp_scrollable_new();
    adw_clamp_scrollable_set_maximum_size(ADW_CLAMP_SCROLLABLE(clamp), widestColumn);
    adw_clamp_scrollable_set_child(ADW_CLAMP_SCROLLABLE(clamp), list_);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller_), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller_), clamp);
    gtk_widget_set_vexpand(scroller_, TRUE);
    gtk_widget_set_focusable(scroller_, FALSE); // its rows are
    reload();
}

ListBody::~ListBody() {
    g_object_unref(names_);
}

bool ListBody::fits() const {
    const auto page = page_.lock();
    return page && canShow(*page);
}

void ListBody::reload() {
    const auto page = page_.lock();
    if (!page)
        return;
    std::vector<std::string> names;
    for (const auto& specifier : page->specifiers())
        names.push_back(displayed(specifier->name()));
    std::vector<const char*> texts;
    for (const auto& name : names)
        texts.push_back(name.c_str());
    texts.push_back(nullptr);
    gtk_string_list_splice(names_, 0, g_list_model_get_n_items(G_LIST_MODEL(names_)), texts.data());
}

void ListBody::added(std::size_t index) {
    if (const auto specifier = specifierAt(static_cast<guint>(index)))
        gtk_string_list_append(names_, displayed(specifier->name()).c_str());
}

void ListBody::removed(std::size_t index) {
    gtk_string_list_remove(names_, static_cast<guint>(index));
}

void ListBody::refresh() {
    for (GtkWidget* holder = gtk_widget_get_first_child(list_); holder;
         holder = gtk_widget_get_next_sibling(holder))
        if (RowContent* row = RowContent::within(holder))
            row->refresh();
}

std::shared_ptr<PSSpecifier> ListBody::specifierAt(guint index) const {
    const auto page = page_.lock();
    return page && index < page->specifiers().size() ? page->specifiers()[index] : nullptr;
}

void ListBody::setUp(GtkSignalListItemFactory*, GtkListItem* item, gpointer data) {
    const auto page = static_cast<ListBody*>(data)->page_;
    RowContent& row = RowContent::make([page](const auto& specifier) { deleteRow(page, specifier); });
    gtk_list_item_set_child(item, row.widget());
}

void ListBody::bind(GtkSignalListItemFactory*, GtkListItem* item, gpointer data) {
    auto* self = static_cast<ListBody*>(data);
    GtkWidget* holder = gtk_widget_get_parent(gtk_list_item_get_child(item));
    RowContent* row = RowContent::within(holder);
    const auto specifier = self->specifierAt(gtk_list_item_get_position(item));
    if (!row || !specifier)
        return;
    row->show(self->page_.lock(), specifier);
    row->describe(holder);
    gtk_list_item_set_activatable(item, row->isActivatable());
}

void ListBody::unbind(GtkSignalListItemFactory*, GtkListItem* item, gpointer) {
    if (GtkWidget* child = gtk_list_item_get_child(item))
        if (RowContent* row = RowContent::within(gtk_widget_get_parent(child)))
            row->clear();
}

} // namespace settings
