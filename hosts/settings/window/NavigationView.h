// The stack of pages in widgets: what a push brings in from the side, and back goes away again, also by a
// swipe.
#pragma once

#include "hosts/settings/window/PageView.h"
#include "platform/preferences/UINavigationController.h"

#include <adwaita.h>

#include <vector>

namespace settings {

class NavigationView {
public:
    /// Shows the controller's pages from now on. Lives until the process ends.
    explicit NavigationView(preferences::UINavigationController& controller);
    NavigationView(const NavigationView&) = delete;
    NavigationView& operator=(const NavigationView&) = delete;

    GtkWidget* widget() const { return GTK_WIDGET(leaflet_); }
    /// Shows the present values of the page on top.
    void refresh();
    /// Gives the keyboard's focus to the page on top.
    void takeFocus();

private:
    using Change = preferences::UINavigationController::Change;
    void changed(Change change);
    void push();
    void pop();
    void showTop();
    void goBack();
    void shownPageChanged();
    void removeLeftPages();
    void addShortcut(const char* trigger);

    preferences::UINavigationController& controller_;
    AdwLeaflet* leaflet_;
    std::vector<PageView*> pages_; // those of the stack, the top one last
    std::vector<GtkWidget*> left_; // on their way out
};

} // namespace settings
