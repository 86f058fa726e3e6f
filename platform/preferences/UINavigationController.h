// A stack of pages, of which the top one is shown.
//
// The controller owns the pages, lays the top one out and tells it when it comes and goes; the host shows it.
// For a page that comes to the top the order is: viewWillAppear:, layout to the content size, the host's
// handler, viewDidAppear:. Main thread only.
#pragma once

#include "platform/preferences/PSViewController.h"

#include <functional>
#include <memory>
#include <vector>

namespace preferences {

class UINavigationController : public runtime::Object {
    RUNTIME_CLASS()
public:
    enum class Change { Push, Pop };
    using ChangeHandler = std::function<void(Change change, bool animated)>;

    const std::vector<std::shared_ptr<PSViewController>>& viewControllers() const { return viewControllers_; }
    /// Null while the stack is empty.
    std::shared_ptr<PSViewController> topViewController() const;

    /// Null and pages that are on the stack already change nothing.
    void pushViewController(std::shared_ptr<PSViewController> controller, bool animated);
    /// Takes the top page away; the root page stays.
    void popViewControllerAnimated(bool animated);

    /// The size of the pages' views, in points; zero at first.
    toolkit::Size contentSize() const { return contentSize_; }
    void setContentSize(toolkit::Size size);

    /// The host's: called when another page is on top, to show it.
    void setChangeHandler(ChangeHandler handler) { changed_ = std::move(handler); }

private:
    void layOut(PSViewController& controller) const;
    void bringUp(const std::shared_ptr<PSViewController>& controller, Change change, bool animated);

    std::vector<std::shared_ptr<PSViewController>> viewControllers_;
    toolkit::Size contentSize_;
    ChangeHandler changed_;
};

} // namespace preferences
