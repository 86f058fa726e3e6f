// What a page puts into the navigation bar while it is on top.
#pragma once

#include "platform/preferences/UIBarButtonItem.h"
#include "platform/toolkit/views/UIView.h"

#include <functional>
#include <memory>
#include <string>

namespace preferences {

class UINavigationItem {
public:
    const std::string& title() const { return title_; }
    void setTitle(std::string title);
    /// Stands where the title would; null for the title.
    const std::shared_ptr<toolkit::UIView>& titleView() const { return titleView_; }
    void setTitleView(std::shared_ptr<toolkit::UIView> view);
    const std::shared_ptr<UIBarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
    void setRightBarButtonItem(std::shared_ptr<UIBarButtonItem> item);

    /// For whoever shows the bar: called after every change. Empty for nobody.
    void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

private:
    void changed() const;

    std::string title_;
    std::shared_ptr<toolkit::UIView> titleView_;
    std::shared_ptr<UIBarButtonItem> rightBarButtonItem_;
    std::function<void()> changed_;
};

} // namespace preferences
