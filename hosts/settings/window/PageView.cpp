#include "hosts/settings/window/PageView.h"

#include "hosts/gtk/Texture.h"
#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Attached.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/ToolkitView.h"
#include "hosts/settings/window/Turn.h"

#include <adwaita.h>

namespace settings {

namespace {

constexpr int barIconSize = 24;

void setWeak(GtkWidget*& place, GtkWidget* widget) {
    if (place)
        g_object_remove_weak_pointer(G_OBJECT(place), reinterpret_cast<gpointer*>(&place));
    place = widget;
    if (place)
        g_object_add_weak_pointer(G_OBJECT(place), reinterpret_cast<gpointer*>(&place));
}

} // namespace

PageView& PageView::make(std::shared_ptr<preferences::PSViewController> page, std::function<void()> back) {
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    return attach<PageView>(box, box, std::move(page), std::move(back));
}

PageView::PageView(GtkWidget* box, std::shared_ptr<preferences::PSViewController> page,
                   std::function<void()> back)
    : box_(box),
      bar_(adw_header_bar_new()),
      page_(std::move(page)),
      list_(std::dynamic_pointer_cast<preferences::PSListController>(page_)),
      back_(std::move(back)) {
    gtk_box_append(GTK_BOX(box_), bar_);
    if (back_)
        addBackButton();
    showNavigationItem();
    page_->navigationItem().setChangeHandler([this] { showNavigationItem(); });
    if (list_) {
        list_->setObserver(this);
        showBody();
    } else {
        ToolkitView& view = ToolkitView::make(page_->title());
        view.show(page_->view());
        gtk_box_append(GTK_BOX(box_), view.widget());
    }
}

PageView::~PageView() {
    setWeak(focus_, nullptr);
    page_->navigationItem().setChangeHandler({});
    if (list_)
        list_->setObserver(nullptr);
}

void PageView::addBackButton() {
    GtkWidget* button = gtk_button_new_from_icon_name("go-previous-symbolic");
    gtk_widget_set_tooltip_text(button, "Back");
    setAccessibleName(button, "Back");
    g_signal_connect_swapped(button, "clicked", G_CALLBACK(+[](PageView* self) {
                                 const auto back = self->back_; // this goes on the way
                                 back();
                                 endTurn();
                             }),
                             this);
    adw_header_bar_pack_start(ADW_HEADER_BAR(bar_), button);
}

void PageView::showNavigationItem() {
    adw_header_bar_set_title_widget(ADW_HEADER_BAR(bar_), newTitle());
    if (barButton_)
        adw_header_bar_remove(ADW_HEADER_BAR(bar_), barButton_);
    barButton_ = page_->navigationItem().rightBarButtonItem() ? newBarButton() : nullptr;
    if (barButton_)
        adw_header_bar_pack_end(ADW_HEADER_BAR(bar_), barButton_);
}

GtkWidget* PageView::newTitle() const {
    const auto view = page_->navigationItem().titleView();
    if (!view)
        return adw_window_title_new(displayed(page_->title()).c_str(), nullptr);
    const toolkit::Size size = view->bounds().size();
    ToolkitView& title = ToolkitView::make(page_->title());
    title.show(view, [size](double) { return size.height; });
    gtk_widget_set_size_request(title.widget(), static_cast<int>(size.width), static_cast<int>(size.height));
    gtk_widget_set_hexpand(title.widget(), FALSE);
    gtk_widget_set_halign(title.widget(), GTK_ALIGN_CENTER);
    gtk_widget_set_valign(title.widget(), GTK_ALIGN_CENTER);
    return title.widget();
}

GtkWidget* PageView::newBarButton() const {
    const auto& item = page_->navigationItem().rightBarButtonItem();
    GtkWidget* button = gtk_button_new();
    if (item->image()) {
        GtkWidget* image =
            gtk_image_new_from_paintable(GDK_PAINTABLE(gtk::makeTexture(*item->image()).get()));
        gtk_image_set_pixel_size(GTK_IMAGE(image), barIconSize);
        gtk_button_set_child(GTK_BUTTON(button), image);
        gtk_widget_add_css_class(button, "flat");
    } else {
        gtk_button_set_label(GTK_BUTTON(button), displayed(item->title()).c_str());
    }
    if (item->style() == preferences::UIBarButtonItem::Style::Done)
        gtk_widget_add_css_class(button, "suggested-action");
    // A picture is named by what it does.
    const std::string name = item->title().empty() ? item->action().name() : item->title();
    gtk_widget_set_tooltip_text(button, displayed(name).c_str());
    setAccessibleName(button, name);
    g_signal_connect_swapped(button, "clicked", G_CALLBACK(+[](PageView* self) {
                                 const auto page = self->page_; // this may go on the way
                                 const auto pressed = page->navigationItem().rightBarButtonItem();
                                 pressed->performAction();
                                 endTurn();
                             }),
                             const_cast<PageView*>(this));
    return button;
}

void PageView::showBody() {
    if (body_)
        gtk_box_remove(GTK_BOX(box_), body_->widget());
    body_ = makePageBody(list_);
    gtk_box_append(GTK_BOX(box_), body_->widget());
}

void PageView::refresh() {
    if (body_)
        body_->refresh();
}

void PageView::keepFocus() {
    GtkRoot* root = gtk_widget_get_root(box_);
    GtkWidget* focus = root ? gtk_root_get_focus(root) : nullptr;
    setWeak(focus_, focus && gtk_widget_is_ancestor(focus, box_) ? focus : nullptr);
}

void PageView::takeFocus() {
    if (focus_ && gtk_widget_grab_focus(focus_))
        return;
    if (GtkWidget* below = gtk_widget_get_next_sibling(bar_))
        gtk_widget_child_focus(below, GTK_DIR_TAB_FORWARD);
}

void PageView::specifiersReloaded() {
    if (!body_->fits())
        showBody();
    else
        body_->reload();
}

void PageView::specifierAdded(std::size_t index, bool) {
    if (!body_->fits())
        showBody();
    else
        body_->added(index);
}

void PageView::specifierRemoved(std::size_t index, bool) {
    body_->removed(index);
}

void PageView::specifierChanged(const std::shared_ptr<preferences::PSSpecifier>&) {
    refresh();
}

} // namespace settings
