// A page of the settings application, made for the row that leads to it.
#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/UINavigationItem.h"
#include "platform/toolkit/views/UIViewController.h"

namespace preferences {

class UINavigationController;

class PSViewController : public toolkit::UIViewController {
    RUNTIME_CLASS()
public:
    /// The row that led here; null for a root page.
    const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
    /// Takes the row's name as the title.
    virtual void setSpecifier(std::shared_ptr<PSSpecifier> specifier);

    const std::string& title() const { return navigationItem_.title(); }
    void setTitle(std::string title) { navigationItem_.setTitle(std::move(title)); }
    UINavigationItem& navigationItem() { return navigationItem_; }
    /// The stack that the page is on, or null.
    UINavigationController* navigationController() const { return navigationController_.get(); }

private:
    friend class UINavigationController;
    std::shared_ptr<PSSpecifier> specifier_;
    UINavigationItem navigationItem_;
    runtime::WeakPtr<UINavigationController> navigationController_;
};

} // namespace preferences
