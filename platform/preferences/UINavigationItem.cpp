#include "platform/preferences/UINavigationItem.h"

namespace preferences {

void UINavigationItem::setTitle(std::string title) {
    title_ = std::move(title);
    changed();
}

void UINavigationItem::setTitleView(std::shared_ptr<toolkit::UIView> view) {
    titleView_ = std::move(view);
    changed();
}

void UINavigationItem::setRightBarButtonItem(std::shared_ptr<UIBarButtonItem> item) {
    rightBarButtonItem_ = std::move(item);
    changed();
}

void UINavigationItem::changed() const {
    if (changed_)
        changed_();
}

} // namespace preferences
