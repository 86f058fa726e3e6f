#include "hosts/settings/window/NativeControls.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/Turn.h"
#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UITextView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace settings {

namespace {

using toolkit::UIButton;
using toolkit::UITextView;

constexpr int textMargin = 12;

/// Answers the signal handler's own reference to a view, which the signal's connection keeps.
template <class View>
std::weak_ptr<View>* connectToView(gpointer instance, const char* signal, GCallback callback,
                                   const std::shared_ptr<View>& view) {
    auto* weak = new std::weak_ptr<View>(view);
    g_signal_connect_data(
        instance, signal, callback, weak,
        [](gpointer kept, GClosure*) { delete static_cast<std::weak_ptr<View>*>(kept); }, GConnectFlags(0));
    return weak;
}

std::string textOf(GtkTextBuffer* buffer) {
    GtkTextIter begin, end;
    gtk_text_buffer_get_bounds(buffer, &begin, &end);
    gchar* text = gtk_text_buffer_get_text(buffer, &begin, &end, TRUE);
    std::string result = text;
    g_free(text);
    return result;
}

/// Of a widget that newTextOver() has made.
GtkTextBuffer* bufferOf(GtkWidget* scroller) {
    return gtk_text_view_get_buffer(
        GTK_TEXT_VIEW(gtk_scrolled_window_get_child(GTK_SCROLLED_WINDOW(scroller))));
}

GtkWidget* newButtonOver(const std::shared_ptr<UIButton>& button) {
    GtkWidget* widget = gtk_button_new();
    gtk_widget_add_css_class(widget, "cover");
    setAccessibleName(widget, button->title());
    connectToView(widget, "clicked", G_CALLBACK(+[](GtkButton*, gpointer weak) {
                      if (const auto pressed = static_cast<std::weak_ptr<UIButton>*>(weak)->lock()) {
                          pressed->sendActions(toolkit::ControlEvent::TouchUpInside);
                          endTurn();
                      }
                  }),
                  button);
    return widget;
}

void textChanged(GtkTextBuffer* buffer, gpointer weak) {
    const auto edited = static_cast<std::weak_ptr<UITextView>*>(weak)->lock();
    if (!edited)
        return;
    // The view tells of edits by the user alone, such as taking a character away. A tab stands by itself,
    // whatever is before it.
    edited->setText(textOf(buffer) + "\t");
    edited->deleteBackward();
    endTurn();
}

GtkWidget* newTextOver(const std::shared_ptr<UITextView>& textView) {
    GtkWidget* widget = gtk_text_view_new();
    gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(widget), GTK_WRAP_WORD_CHAR);
    gtk_text_view_set_editable(GTK_TEXT_VIEW(widget), textView->isEditable());
    gtk_text_view_set_left_margin(GTK_TEXT_VIEW(widget), textMargin);
    gtk_text_view_set_right_margin(GTK_TEXT_VIEW(widget), textMargin);
    gtk_text_view_set_top_margin(GTK_TEXT_VIEW(widget), textMargin);
    gtk_text_view_set_bottom_margin(GTK_TEXT_VIEW(widget), textMargin);
    // Tab leads on to the next control, as everywhere else.
    gtk_text_view_set_accepts_tab(GTK_TEXT_VIEW(widget), FALSE);
    setAccessibleName(widget, "Text");
    GtkTextBuffer* buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(widget));
    gtk_text_buffer_set_text(buffer, displayed(textView->text()).c_str(), -1);
    gtk_text_buffer_set_enable_undo(buffer, TRUE);
    GtkTextIter begin;
    gtk_text_buffer_get_start_iter(buffer, &begin);
    gtk_text_buffer_place_cursor(buffer, &begin);
    GtkWidget* scroller = gtk_scrolled_window_new();
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller), GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller), widget);
    gtk_widget_set_focusable(scroller, FALSE);
    gtk_widget_add_css_class(scroller, "card");
    gtk_widget_set_overflow(scroller, GTK_OVERFLOW_HIDDEN);
    return scroller;
}

} // namespace

void NativeControls::cover(const std::shared_ptr<toolkit::UIView>& root) {
    former_ = std::exchange(covers_, {});
    root_ = root;
    if (root)
        coverTree(root);
    for (const Cover& cover : std::exchange(former_, {}))
        gtk_widget_unparent(cover.widget);
}

void NativeControls::coverTree(const std::shared_ptr<toolkit::UIView>& view) {
    if (const auto button = std::dynamic_pointer_cast<UIButton>(view))
        add({view, newButtonOver(button)});
    else if (const auto textView = std::dynamic_pointer_cast<UITextView>(view))
        coverText(textView);
    else
        for (const auto& subview : view->subviews())
            coverTree(subview);
}

void NativeControls::coverText(const std::shared_ptr<UITextView>& textView) {
    textView->setHidden(true);
    const auto same = std::find_if(former_.begin(), former_.end(), [&](const Cover& cover) {
        return cover.edited && textOf(bufferOf(cover.widget)) == displayed(textView->text());
    });
    if (same == former_.end()) {
        GtkWidget* widget = newTextOver(textView);
        add({textView, widget,
             connectToView(bufferOf(widget), "changed", G_CALLBACK(textChanged), textView)});
        return;
    }
    *same->edited = textView;
    covers_.push_back({textView, same->widget, same->edited});
    former_.erase(same);
}

void NativeControls::add(const Cover& cover) {
    gtk_widget_set_parent(cover.widget, parent_);
    covers_.push_back(cover);
}

void NativeControls::allocate() {
    const auto root = root_.lock();
    for (const Cover& cover : covers_) {
        const auto view = cover.view.lock();
        if (!root || !view)
            continue;
        const toolkit::Rect frame = view->convertRectTo(view->bounds(), root.get());
        int leastWidth = 0, leastHeight = 0;
        gtk_widget_measure(cover.widget, GTK_ORIENTATION_HORIZONTAL, -1, &leastWidth, nullptr, nullptr,
                           nullptr);
        const int width = std::max(leastWidth, static_cast<int>(std::ceil(frame.width)));
        gtk_widget_measure(cover.widget, GTK_ORIENTATION_VERTICAL, width, &leastHeight, nullptr, nullptr,
                           nullptr);
        const GtkAllocation place{static_cast<int>(frame.x), static_cast<int>(frame.y), width,
                                  std::max(leastHeight, static_cast<int>(std::ceil(frame.height)))};
        gtk_widget_size_allocate(cover.widget, &place, -1);
    }
}

} // namespace settings
