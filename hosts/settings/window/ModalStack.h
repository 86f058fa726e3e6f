// What is presented over the pages: one modal page over the other, each over the whole window.
#pragma once

#include "platform/toolkit/views/UIViewController.h"

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <vector>

namespace settings {

class ModalStack {
public:
    /// `pages` is what lies beneath all of them.
    explicit ModalStack(GtkWidget* pages);
    ModalStack(const ModalStack&) = delete;
    ModalStack& operator=(const ModalStack&) = delete;

    GtkWidget* widget() const { return GTK_WIDGET(stack_); }
    /// Whether anything is presented.
    bool isShown() const { return !modals_.empty(); }
    /// Gives the keyboard's focus to what has been presented last.
    void takeFocus();

    /// Shows `page`, a new widget, for this controller, which is kept while it is shown; `completion` is
    /// called once it stands.
    void present(std::shared_ptr<toolkit::UIViewController> controller, GtkWidget* page, bool animated,
                 std::function<void()> completion);
    /// Takes it away again, with what was presented after it; `completion` is called once it is gone, at once
    /// when it was not shown.
    void dismiss(toolkit::UIViewController& controller, bool animated, std::function<void()> completion);

private:
    struct Modal {
        std::shared_ptr<toolkit::UIViewController> controller;
        GtkWidget* page;
    };
    void show(GtkWidget* page, GtkStackTransitionType transition);
    void transitionChanged();

    GtkStack* stack_;
    GtkWidget* pages_;
    std::vector<Modal> modals_;
    std::vector<Modal> left_; // on their way out
    std::vector<std::function<void()>> completions_;
};

} // namespace settings
