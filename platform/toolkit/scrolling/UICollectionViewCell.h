// One item of a collection view, as it is shown. Cells that leave the view are kept and shown again as
// others.
#pragma once

#include "platform/toolkit/views/UIView.h"

#include <string>

namespace toolkit {

class UICollectionView;

class UICollectionViewCell : public UIView {
    RUNTIME_CLASS()
public:
    explicit UICollectionViewCell(Rect frame = {});

    /// What the cell shows lies in here, over the whole of its bounds.
    const std::shared_ptr<UIView>& contentView() const { return contentView_; }
    const std::string& reuseIdentifier() const { return reuseIdentifier_; }
    /// Whether a finger is on the cell now.
    bool isHighlighted() const { return touch_ >= 0; }

    /// Called before the cell is shown again as another item; overriders call the base.
    virtual void prepareForReuse();

    void layoutSubviews() override;
    /// What nothing in the content view takes is the cell's.
    UIView* hitTest(Point point) override;
    bool takesTouchAt(Point point) const override { return pointInside(point); }
    void touchesBegan(const Touch& touch) override;
    void touchesEnded(const Touch& touch) override;
    void touchesCancelled(const Touch& touch) override;

private:
    friend class UICollectionView;
    std::shared_ptr<UIView> contentView_;
    std::string reuseIdentifier_;
    runtime::WeakPtr<UICollectionView> collectionView_;
    std::int64_t touch_ = -1; // none
};

} // namespace toolkit
