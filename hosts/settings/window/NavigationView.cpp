#include "hosts/settings/window/NavigationView.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Turn.h"

namespace settings {

namespace {
constexpr guint mouseBackButton = 8;
} // namespace

NavigationView::NavigationView(preferences::UINavigationController& controller)
    : controller_(controller), leaflet_(ADW_LEAFLET(adw_leaflet_new())) {
    adw_leaflet_set_can_unfold(leaflet_, FALSE);
    adw_leaflet_set_can_navigate_back(leaflet_, TRUE);
    g_signal_connect_swapped(leaflet_, "notify::visible-child",
                             G_CALLBACK(+[](NavigationView* self) { self->shownPageChanged(); }), this);
    g_signal_connect_swapped(leaflet_, "notify::child-transition-running",
                             G_CALLBACK(+[](NavigationView* self) { self->removeLeftPages(); }), this);
    controller_.setChangeHandler([this](Change change, bool) { changed(change); });
    addShortcut("<Alt>Left");
    addShortcut("Escape");
    GtkGesture* click = gtk_gesture_click_new();
    gtk_gesture_single_set_button(GTK_GESTURE_SINGLE(click), mouseBackButton);
    g_signal_connect_swapped(click, "pressed", G_CALLBACK(+[](NavigationView* self) { self->goBack(); }),
                             this);
    gtk_widget_add_controller(widget(), GTK_EVENT_CONTROLLER(click));
}

void NavigationView::addShortcut(const char* trigger) {
    GtkEventController* shortcuts = gtk_shortcut_controller_new();
    GtkShortcutAction* action = gtk_callback_action_new(
        [](GtkWidget*, GVariant*, gpointer self) -> gboolean {
            static_cast<NavigationView*>(self)->goBack();
            return TRUE;
        },
        this, nullptr);
    gtk_shortcut_controller_add_shortcut(
        GTK_SHORTCUT_CONTROLLER(shortcuts),
        gtk_shortcut_new(gtk_shortcut_trigger_parse_string(trigger), action));
    gtk_widget_add_controller(widget(), shortcuts);
}

void NavigationView::refresh() {
    if (!pages_.empty())
        pages_.back()->refresh();
}

void NavigationView::changed(Change change) {
    if (change == Change::Push)
        push();
    else
        pop();
}

void NavigationView::push() {
    std::function<void()> back;
    if (!pages_.empty()) {
        pages_.back()->keepFocus();
        back = [this] { goBack(); };
    }
    PageView& page = PageView::make(controller_.topViewController(), std::move(back));
    pages_.push_back(&page);
    adw_leaflet_append(leaflet_, page.widget());
    showTop();
}

void NavigationView::pop() {
    GtkWidget* left = pages_.back()->widget();
    pages_.pop_back();
    pages_.back()->refresh();
    setPassedOver(left, true);
    showTop();
    // Not before: the end of an earlier transition, which comes within, would take it away while it is shown.
    left_.push_back(left);
    removeLeftPages();
}

void NavigationView::showTop() {
    for (PageView* page : pages_)
        setPassedOver(page->widget(), page != pages_.back());
    adw_leaflet_set_visible_child(leaflet_, pages_.back()->widget());
    pages_.back()->takeFocus();
}

void NavigationView::takeFocus() {
    if (!pages_.empty())
        pages_.back()->takeFocus();
}

void NavigationView::goBack() {
    controller_.popViewControllerAnimated(true);
    endTurn();
}

void NavigationView::shownPageChanged() {
    // A swipe has gone back by itself.
    const bool wentBack =
        pages_.size() > 1 && adw_leaflet_get_visible_child(leaflet_) == pages_[pages_.size() - 2]->widget();
    if (wentBack)
        goBack();
}

void NavigationView::removeLeftPages() {
    if (adw_leaflet_get_child_transition_running(leaflet_))
        return;
    for (GtkWidget* page : std::exchange(left_, {}))
        adw_leaflet_remove(leaflet_, page);
}

} // namespace settings
