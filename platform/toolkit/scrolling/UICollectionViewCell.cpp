#include "platform/toolkit/scrolling/UICollectionViewCell.h"

#include "platform/toolkit/gestures/Touch.h"
#include "platform/toolkit/scrolling/UICollectionView.h"

namespace toolkit {

runtime::Class& UICollectionViewCell::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UICollectionViewCell>("UICollectionViewCell", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UICollectionViewCell)

UICollectionViewCell::UICollectionViewCell(Rect frame)
    : UIView(frame), contentView_(std::make_shared<UIView>(Rect({}, frame.size()))) {
    addSubview(contentView_);
}

void UICollectionViewCell::prepareForReuse() {
    touch_ = -1;
}

void UICollectionViewCell::layoutSubviews() {
    contentView_->setFrame(bounds());
}

UIView* UICollectionViewCell::hitTest(Point point) {
    UIView* hit = UIView::hitTest(point);
    return hit == contentView_.get() ? this : hit;
}

void UICollectionViewCell::touchesBegan(const Touch& touch) {
    if (touch_ < 0)
        touch_ = touch.identifier;
}

void UICollectionViewCell::touchesEnded(const Touch& touch) {
    if (touch.identifier != touch_)
        return;
    touch_ = -1;
    if (collectionView_ && pointInside(touch.locationIn(this)))
        collectionView_->cellWasTapped(*this);
}

void UICollectionViewCell::touchesCancelled(const Touch& touch) {
    if (touch.identifier == touch_)
        touch_ = -1;
}

} // namespace toolkit
