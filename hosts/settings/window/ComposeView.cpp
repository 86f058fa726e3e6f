#include "hosts/settings/window/ComposeView.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Attached.h"
#include "hosts/settings/window/Measures.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/Turn.h"

#include <adwaita.h>

namespace settings {

namespace {

using preferences::SLComposeViewController;

struct Message {
    std::weak_ptr<SLComposeViewController> controller;
    std::function<void(const std::string&)> send;
    GtkTextBuffer* buffer;
};

std::string textOf(GtkTextBuffer* buffer) {
    GtkTextIter begin, end;
    gtk_text_buffer_get_bounds(buffer, &begin, &end);
    gchar* text = gtk_text_buffer_get_text(buffer, &begin, &end, FALSE);
    std::string result = text;
    g_free(text);
    return result;
}

void post(Message* message) {
    message->send(textOf(message->buffer));
    if (const auto controller = message->controller.lock())
        controller->complete(SLComposeViewController::Result::Done);
    endTurn();
}

GtkWidget* newEditor(const std::string& text) {
    GtkWidget* editor = gtk_text_view_new();
    gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(editor), GTK_WRAP_WORD_CHAR);
    gtk_text_view_set_accepts_tab(GTK_TEXT_VIEW(editor), FALSE);
    gtk_text_view_set_left_margin(GTK_TEXT_VIEW(editor), columnMargin);
    gtk_text_view_set_right_margin(GTK_TEXT_VIEW(editor), columnMargin);
    gtk_text_view_set_top_margin(GTK_TEXT_VIEW(editor), columnMargin);
    gtk_text_view_set_bottom_margin(GTK_TEXT_VIEW(editor), columnMargin);
    gtk_text_buffer_set_text(gtk_text_view_get_buffer(GTK_TEXT_VIEW(editor)), displayed(text).c_str(), -1);
    setAccessibleName(editor, "Message");
    return editor;
}

} // namespace

GtkWidget* newComposePage(const std::shared_ptr<SLComposeViewController>& controller,
                          std::function<void(const std::string&)> send) {
    GtkWidget* editor = newEditor(controller->initialText());
    GtkWidget* scroller = gtk_scrolled_window_new();
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller), editor);
    gtk_widget_set_focusable(scroller, FALSE);
    const std::weak_ptr weak(controller);
    const ModalPage page = newModalPage("Message", "Cancel", scroller, [weak] {
        if (const auto cancelled = weak.lock())
            cancelled->complete(SLComposeViewController::Result::Cancelled);
    });
    Message& message = attach<Message>(
        page.widget, Message{controller, std::move(send), gtk_text_view_get_buffer(GTK_TEXT_VIEW(editor))});
    GtkWidget* button = gtk_button_new_with_label("Post");
    gtk_widget_add_css_class(button, "suggested-action");
    g_signal_connect_swapped(button, "clicked", G_CALLBACK(post), &message);
    adw_header_bar_pack_end(ADW_HEADER_BAR(page.bar), button);
    return page.widget;
}

} // namespace settings
