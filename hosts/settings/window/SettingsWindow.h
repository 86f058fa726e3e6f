// The settings' window: the stack of pages, and over it what pages present.
//
// It measures the pages: their views are as wide as the column that their rows stand in, and as high as the
// window. Lives until the process ends.
#pragma once

#include "hosts/gtk/FrameClock.h"
#include "hosts/settings/window/ModalStack.h"
#include "hosts/settings/window/NavigationView.h"

#include <adwaita.h>

namespace settings {

class SettingsWindow {
public:
    SettingsWindow(preferences::UINavigationController& controller, std::function<void()> closed);
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;

    /// Shows the window, or brings it to the front.
    void present();
    GtkWindow* window() const { return GTK_WINDOW(window_); }
    ModalStack& modals() { return modals_; }
    /// Says something in passing.
    void notify(const std::string& text);
    /// Shows the present values of the page on top.
    void refresh() { navigation_.refresh(); }

private:
    void measure(int width, int height);
    bool layOutPages();

    preferences::UINavigationController& controller_;
    std::function<void()> closed_;
    GtkWidget* window_;
    NavigationView navigation_;
    ModalStack modals_;
    AdwToastOverlay* toasts_;
    gtk::FrameClock frames_;
    toolkit::Size size_;
};

} // namespace settings
