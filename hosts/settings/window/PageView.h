// One page of the stack: its bar, with the way back, title and button, and its rows below.
//
// Main thread only. Goes with its widget; keeps the page.
#pragma once

#include "hosts/settings/window/PageBody.h"
#include "platform/preferences/PSListObserver.h"
#include "platform/preferences/PSViewController.h"

#include <gtk/gtk.h>

#include <functional>
#include <memory>

namespace settings {

class PageView : public preferences::PSListObserver {
public:
    /// A new widget. `back` goes back to the page before; empty for the first page.
    static PageView& make(std::shared_ptr<preferences::PSViewController> page, std::function<void()> back);
    ~PageView() override;
    PageView(const PageView&) = delete;
    PageView& operator=(const PageView&) = delete;

    GtkWidget* widget() const { return box_; }
    const std::shared_ptr<preferences::PSViewController>& page() const { return page_; }

    /// Shows the present values of the rows.
    void refresh();
    /// Where the keyboard's focus is, so that it can return there.
    void keepFocus();
    void takeFocus();

    void specifiersReloaded() override;
    void specifierAdded(std::size_t index, bool animated) override;
    void specifierRemoved(std::size_t index, bool animated) override;
    void specifierChanged(const std::shared_ptr<preferences::PSSpecifier>& specifier) override;

private:
    template <class T, class... Arguments>
    friend T& attach(GtkWidget*, Arguments&&...);
    PageView(GtkWidget* box, std::shared_ptr<preferences::PSViewController> page, std::function<void()> back);

    void addBackButton();
    void showNavigationItem();
    GtkWidget* newTitle() const;
    GtkWidget* newBarButton() const;
    void showBody();

    GtkWidget* box_;
    GtkWidget* bar_;
    GtkWidget* barButton_ = nullptr;
    std::shared_ptr<preferences::PSViewController> page_;
    std::shared_ptr<preferences::PSListController> list_; // the page, when it is one of rows
    std::function<void()> back_;
    std::unique_ptr<PageBody> body_;
    GtkWidget* focus_ = nullptr; // weak
};

} // namespace settings
