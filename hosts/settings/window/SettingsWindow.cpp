#include "hosts/settings/window/SettingsWindow.h"

#include "hosts/settings/window/Measures.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/Turn.h"
#include "platform/toolkit/windows/UIScreen.h"

namespace settings {

SettingsWindow::SettingsWindow(preferences::UINavigationController& controller, std::function<void()> closed)
    : controller_(controller),
      closed_(std::move(closed)),
      window_(adw_window_new()),
      navigation_(controller),
      modals_(navigation_.widget()),
      toasts_(ADW_TOAST_OVERLAY(adw_toast_overlay_new())),
      frames_(window_, [this] { return layOutPages(); }) {
    gtk_window_set_title(GTK_WINDOW(window_), "Settings");
    gtk_window_set_default_size(GTK_WINDOW(window_), firstWidth, firstHeight);
    gtk_widget_set_size_request(window_, narrowestWindow, -1);
    // A drawing area beneath everything tells the size of the window's content.
    GtkWidget* ground = gtk_drawing_area_new();
    g_signal_connect(ground, "resize", G_CALLBACK(+[](GtkDrawingArea*, int width, int height, gpointer self) {
                         static_cast<SettingsWindow*>(self)->measure(width, height);
                     }),
                     this);
    GtkWidget* overlay = gtk_overlay_new();
    gtk_overlay_set_child(GTK_OVERLAY(overlay), ground);
    gtk_overlay_add_overlay(GTK_OVERLAY(overlay), modals_.widget());
    gtk_overlay_set_measure_overlay(GTK_OVERLAY(overlay), modals_.widget(), TRUE);
    adw_toast_overlay_set_child(toasts_, overlay);
    adw_window_set_content(ADW_WINDOW(window_), GTK_WIDGET(toasts_));
    g_signal_connect(window_, "close-request", G_CALLBACK(+[](GtkWindow*, gpointer self) -> gboolean {
                         static_cast<SettingsWindow*>(self)->closed_();
                         return GDK_EVENT_STOP;
                     }),
                     this);
    size_ = {firstWidth, firstHeight};
    layOutPages();
}

void SettingsWindow::present() {
    gtk_window_present(GTK_WINDOW(window_));
    if (modals_.isShown())
        modals_.takeFocus();
    else
        navigation_.takeFocus();
}

void SettingsWindow::notify(const std::string& text) {
    adw_toast_overlay_add_toast(toasts_, adw_toast_new(displayed(text).c_str()));
}

void SettingsWindow::measure(int width, int height) {
    const toolkit::Size size{static_cast<double>(width), static_cast<double>(height)};
    if (size == size_)
        return;
    size_ = size;
    // Not in the midst of GTK's own layout.
    frames_.request();
}

bool SettingsWindow::layOutPages() {
    const toolkit::Size column{static_cast<double>(columnWidth(static_cast<int>(size_.width))), size_.height};
    toolkit::UIScreen::mainScreen().setSize(column);
    controller_.setContentSize(column);
    endTurn();
    return false;
}

} // namespace settings
