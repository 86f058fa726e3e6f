#include "hosts/settings/window/NativeControls.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/Turn.h"
#include "platform/toolkit/views/UIButton.h"
#include "platform/toolkit/views/UITextView.h"

#include <cmath>

namespace settings {

namespace {

using toolkit::UIButton;
using toolkit::UITextView;

constexpr int textMargin = 12;

/// A signal handler's own reference to a view, which the signal's connection keeps.
template <class View>
gulong connectToView(gpointer instance, const char* signal, GCallback callback,
                     const std::shared_ptr<View>& view) {
    return g_signal_connect_data(
        instance, signal, callback, new std::weak_ptr<View>(view),
        [](gpointer weak, GClosure*) { delete static_cast<std::weak_ptr<View>*>(weak); }, GConnectFlags(0));
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
    GtkTextIter begin, end;
    gtk_text_buffer_get_bounds(buffer, &begin, &end);
    gchar* text = gtk_text_buffer_get_text(buffer, &begin, &end, TRUE);
    // The view tells of edits by the user alone, such as taking a character away. A tab stands by itself,
    // whatever is before it.
    edited->setText(std::string(text) + "\t");
    edited->deleteBackward();
    g_free(text);
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
    connectToView(buffer, "changed", G_CALLBACK(textChanged), textView);

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
    for (const Cover& cover : covers_)
        gtk_widget_unparent(cover.widget);
    covers_.clear();
    root_ = root;
    if (root)
        coverTree(root);
}

void NativeControls::coverTree(const std::shared_ptr<toolkit::UIView>& view) {
    if (const auto button = std::dynamic_pointer_cast<UIButton>(view))
        add(view, newButtonOver(button));
    else if (const auto textView = std::dynamic_pointer_cast<UITextView>(view)) {
        add(view, newTextOver(textView));
        textView->setHidden(true);
    } else
        for (const auto& subview : view->subviews())
            coverTree(subview);
}

void NativeControls::add(const std::shared_ptr<toolkit::UIView>& view, GtkWidget* widget) {
    gtk_widget_set_parent(widget, parent_);
    covers_.push_back({view, widget});
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
