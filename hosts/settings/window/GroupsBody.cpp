#include "hosts/settings/window/GroupsBody.h"

#include "hosts/settings/window/ListBody.h"
#include "hosts/settings/window/Measures.h"
#include "hosts/settings/window/Text.h"

#include <adwaita.h>

namespace settings {

using preferences::PSCellType;
using preferences::PSListController;
using preferences::PSSpecifier;

namespace {

constexpr int groupSpacing = 18;
constexpr int footerGap = 8;
/// Around a row that is all of a page; with it the page is as high as the room below the bar.
constexpr int pageMargin = 8;

GtkWidget* newText(const std::string& text, const char* styleClass) {
    GtkWidget* label = gtk_label_new(displayed(text).c_str());
    gtk_label_set_wrap(GTK_LABEL(label), TRUE);
    gtk_label_set_wrap_mode(GTK_LABEL(label), PANGO_WRAP_WORD_CHAR);
    gtk_label_set_xalign(GTK_LABEL(label), 0);
    gtk_widget_add_css_class(label, styleClass);
    return label;
}

GtkWidget* newFooter(const std::string& text) {
    GtkWidget* label = newText(text, "group-footer");
    gtk_widget_add_css_class(label, "dim-label");
    gtk_widget_set_margin_start(label, columnMargin);
    gtk_widget_set_margin_end(label, columnMargin);
    gtk_widget_set_margin_top(label, footerGap);
    return label;
}

/// Up and Down lead from one box of rows to the next, as if they were one list.
gboolean leadOn(GtkWidget* list, GtkDirectionType direction, gpointer) {
    if (direction != GTK_DIR_UP && direction != GTK_DIR_DOWN)
        return FALSE;
    GtkWidget* window = GTK_WIDGET(gtk_widget_get_root(list));
    return gtk_widget_child_focus(window,
                                  direction == GTK_DIR_UP ? GTK_DIR_TAB_BACKWARD : GTK_DIR_TAB_FORWARD);
}

/// Whether a row draws itself, all of it.
bool drawsItself(const PSSpecifier& specifier) {
    return !specifier.isGroup() && specifier.cellType() != PSCellType::Switch &&
           !specifier.textForKey(preferences::keys::cellClass).empty();
}

} // namespace

GroupsBody::GroupsBody(const std::shared_ptr<PSListController>& page)
    : page_(page), scroller_(gtk_scrolled_window_new()), column_(gtk_box_new(GTK_ORIENTATION_VERTICAL, 0)) {
    gtk_widget_set_margin_start(column_, columnMargin);
    gtk_widget_set_margin_end(column_, columnMargin);
    gtk_widget_set_margin_bottom(column_, pageMargin);
    GtkWidget* clamp = adw_clamp_new();
    adw_clamp_set_maximum_size(ADW_CLAMP(clamp), widestColumn);
    adw_clamp_set_tightening_threshold(ADW_CLAMP(clamp), widestColumn);
    adw_clamp_set_child(ADW_CLAMP(clamp), column_);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller_), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller_), clamp);
    gtk_widget_set_vexpand(scroller_, TRUE);
    gtk_widget_set_focusable(scroller_, FALSE); // its rows are
    // GTK forgets what it was told of rows that no reader had met yet.
    g_signal_connect_data(scroller_, "map", G_CALLBACK(+[](GroupsBody* self) { self->refresh(); }), this,
                          nullptr, GConnectFlags(G_CONNECT_SWAPPED | G_CONNECT_AFTER));
    reload();
}

bool GroupsBody::fits() const {
    const auto page = page_.lock();
    return page && !ListBody::canShow(*page);
}

void GroupsBody::reload() {
    const auto page = page_.lock();
    if (!page)
        return;
    if (page->specifiers() != shown_)
        rebuild(*page);
    showCells(*page);
    refresh();
}

void GroupsBody::rebuild(PSListController& page) {
    rows_.clear();
    cells_.clear();
    while (GtkWidget* child = gtk_widget_get_first_child(column_))
        gtk_box_remove(GTK_BOX(column_), child);
    shown_ = page.specifiers();
    for (const Section& section : page.sections())
        addSection(page, section);
}

void GroupsBody::addSection(PSListController& page, const Section& section) {
    const auto& group = section.group;
    const bool hasHeader = group && !group->textForKey(preferences::keys::headerCellClass).empty();
    const std::string footer = group ? group->textForKey(preferences::keys::footerText) : "";
    if (group && !group->name().empty())
        gtk_box_append(GTK_BOX(column_), newText(group->name(), "heading"));
    if (hasHeader)
        addCell(group, footer);
    addRows(page, section);
    if (!footer.empty())
        gtk_box_append(GTK_BOX(column_), newFooter(footer));
}

void GroupsBody::addRows(PSListController&, const Section& section) {
    const std::string name = section.group ? section.group->textForKey(preferences::keys::footerText) : "";
    GtkWidget* list = nullptr;
    for (const auto& row : section.rows) {
        if (drawsItself(*row)) {
            addCell(row, row->name());
            list = nullptr;
            continue;
        }
        if (!list) {
            list = newList(name);
            gtk_box_append(GTK_BOX(column_), list);
        }
        addRow(list, row);
    }
}

GtkWidget* GroupsBody::newList(const std::string& name) const {
    GtkWidget* list = gtk_list_box_new();
    gtk_list_box_set_selection_mode(GTK_LIST_BOX(list), GTK_SELECTION_NONE);
    gtk_widget_add_css_class(list, "boxed-list");
    gtk_widget_add_css_class(list, "page-rows");
    gtk_widget_set_margin_top(list, groupSpacing);
    if (!name.empty())
        gtk_accessible_update_property(GTK_ACCESSIBLE(list), GTK_ACCESSIBLE_PROPERTY_DESCRIPTION,
                                       displayed(name).c_str(), -1);
    g_signal_connect(list, "row-activated", G_CALLBACK(+[](GtkListBox*, GtkListBoxRow* row, gpointer) {
                         if (RowContent* content = RowContent::within(GTK_WIDGET(row)))
                             content->activate();
                     }),
                     nullptr);
    g_signal_connect(list, "keynav-failed", G_CALLBACK(leadOn), nullptr);
    addDeleteKey(list);
    return list;
}

void GroupsBody::addRow(GtkWidget* list, const std::shared_ptr<PSSpecifier>& specifier) {
    RowContent& content = RowContent::make([page = page_](const auto& deleted) { deleteRow(page, deleted); });
    content.show(page_.lock(), specifier);
    GtkWidget* row = gtk_list_box_row_new();
    gtk_list_box_row_set_child(GTK_LIST_BOX_ROW(row), content.widget());
    gtk_list_box_row_set_activatable(GTK_LIST_BOX_ROW(row), content.isActivatable());
    // What holds nothing to do but a control of its own needs no stop for the keyboard.
    const bool focusable = content.isActivatable() && specifier->cellType() != PSCellType::Switch;
    gtk_widget_set_focusable(row, focusable);
    gtk_list_box_append(GTK_LIST_BOX(list), row);
    rows_.push_back(&content);
}

void GroupsBody::addCell(const std::shared_ptr<PSSpecifier>& specifier, const std::string& name) {
    ToolkitView& view = ToolkitView::make(name);
    gtk_widget_set_margin_top(view.widget(), specifier->isGroup() ? groupSpacing : pageMargin);
    gtk_box_append(GTK_BOX(column_), view.widget());
    cells_.push_back({specifier, &view});
}

void GroupsBody::showCells(PSListController& page) {
    for (const Cell& cell : cells_) {
        const auto shown = cell.specifier->isGroup() ? page.headerCellForGroup(cell.specifier)
                                                     : page.cellForSpecifier(cell.specifier);
        gtk_widget_set_visible(cell.view->widget(), shown != nullptr);
        if (shown)
            cell.view->show(shown, [weak = std::weak_ptr(shown)](double width) {
                const auto measured = weak.lock();
                return measured ? measured->preferredHeightForWidth(width) : 0;
            });
    }
}

void GroupsBody::refresh() {
    for (RowContent* row : rows_) {
        row->refresh();
        row->describe(gtk_widget_get_parent(row->widget()));
    }
}

} // namespace settings
