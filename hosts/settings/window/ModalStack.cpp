#include "hosts/settings/window/ModalStack.h"

#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Turn.h"
#include "platform/foundation/RunLoop.h"

#include <algorithm>

namespace settings {

ModalStack::ModalStack(GtkWidget* pages) : stack_(GTK_STACK(gtk_stack_new())), pages_(pages) {
    gtk_stack_add_child(stack_, pages_);
    g_signal_connect_swapped(stack_, "notify::transition-running",
                             G_CALLBACK(+[](ModalStack* self) { self->transitionChanged(); }), this);
}

void ModalStack::present(std::shared_ptr<toolkit::UIViewController> controller, GtkWidget* page,
                         bool animated, std::function<void()> completion) {
    controller->viewWillAppear(animated);
    modals_.push_back({controller, page});
    completions_.push_back([controller, animated, completion = std::move(completion)] {
        controller->viewDidAppear(animated);
        if (completion)
            completion();
    });
    gtk_stack_add_child(stack_, page);
    show(page, animated ? GTK_STACK_TRANSITION_TYPE_OVER_UP : GTK_STACK_TRANSITION_TYPE_NONE);
    takeFocus();
}

void ModalStack::takeFocus() {
    // What the page shows comes before its bar.
    if (!modals_.empty())
        gtk_widget_child_focus(gtk_widget_get_last_child(modals_.back().page), GTK_DIR_TAB_FORWARD);
}

void ModalStack::dismiss(toolkit::UIViewController& controller, bool animated,
                         std::function<void()> completion) {
    const auto found = std::find_if(modals_.begin(), modals_.end(), [&](const Modal& modal) {
        return modal.controller.get() == &controller;
    });
    if (found == modals_.end()) {
        if (completion)
            completion();
        return;
    }
    for (auto modal = found; modal != modals_.end(); ++modal)
        modal->controller->viewWillDisappear(animated);
    left_.insert(left_.end(), found, modals_.end());
    modals_.erase(found, modals_.end());
    if (completion)
        completions_.push_back(std::move(completion));
    show(modals_.empty() ? pages_ : modals_.back().page,
         animated ? GTK_STACK_TRANSITION_TYPE_UNDER_DOWN : GTK_STACK_TRANSITION_TYPE_NONE);
}

void ModalStack::show(GtkWidget* page, GtkStackTransitionType transition) {
    gtk_stack_set_transition_type(stack_, transition);
    gtk_stack_set_visible_child(stack_, page);
    setPassedOver(pages_, page != pages_);
    for (const Modal& modal : modals_)
        setPassedOver(modal.page, modal.page != page);
    for (const Modal& modal : left_)
        setPassedOver(modal.page, true);
    // Without a transition, as before the window is shown, nobody tells that it has ended.
    foundation::RunLoop::main().performOnMain([this] { transitionChanged(); });
}

void ModalStack::transitionChanged() {
    if (gtk_stack_get_transition_running(stack_))
        return;
    // What is done here may present and dismiss again.
    const auto left = std::exchange(left_, {});
    const auto completions = std::exchange(completions_, {});
    for (const Modal& modal : left)
        gtk_stack_remove(stack_, modal.page);
    for (const auto& completion : completions)
        completion();
    if (!completions.empty())
        endTurn();
}

} // namespace settings
