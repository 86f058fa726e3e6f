// Many items of which only those that are looked at have a cell.
//
// A data source says how many items there are and makes their cells, out of cells that were registered by a
// reuse identifier and have left the view. What is reloaded is asked for anew at the next layout. A tap on a
// cell selects its item. The view owns its cells and its layout, neither data source nor delegate.
#pragma once

#include "platform/toolkit/scrolling/UICollectionViewCell.h"
#include "platform/toolkit/scrolling/UICollectionViewFlowLayout.h"
#include "platform/toolkit/scrolling/UIScrollView.h"

#include <map>
#include <string>
#include <vector>

namespace toolkit {

class CollectionViewDataSource {
public:
    virtual ~CollectionViewDataSource() = default;
    virtual int numberOfSectionsInCollectionView(UICollectionView&) { return 1; }
    virtual int numberOfItemsInSection(UICollectionView& view, int section) = 0;
    /// The cell comes from dequeueReusableCell(); null shows nothing.
    virtual std::shared_ptr<UICollectionViewCell> cellForItemAtIndexPath(UICollectionView& view,
                                                                         IndexPath indexPath) = 0;
};

/// The geometry is the layout's own where it is not answered otherwise.
class CollectionViewDelegate : public ScrollViewDelegate {
public:
    virtual void didSelectItemAtIndexPath(UICollectionView&, IndexPath) {}
    virtual Size sizeForItemAtIndexPath(UICollectionView&, UICollectionViewFlowLayout& layout, IndexPath) {
        return layout.itemSize;
    }
    virtual double minimumLineSpacingForSectionAtIndex(UICollectionView&, UICollectionViewFlowLayout& layout,
                                                       int) {
        return layout.minimumLineSpacing;
    }
    virtual EdgeInsets insetForSectionAtIndex(UICollectionView&, UICollectionViewFlowLayout& layout, int) {
        return layout.sectionInset;
    }
};

class UICollectionView : public UIScrollView {
    RUNTIME_CLASS()
public:
    /// initWithFrame:collectionViewLayout:
    UICollectionView(Rect frame, std::shared_ptr<UICollectionViewFlowLayout> collectionViewLayout);
    ~UICollectionView() override;

    /// Not owned; cleared by them before they go.
    void setDataSource(CollectionViewDataSource* dataSource);
    void setCollectionViewDelegate(CollectionViewDelegate* delegate);
    const std::shared_ptr<UICollectionViewFlowLayout>& collectionViewLayout() const { return layout_; }

    /// registerClass:forCellWithReuseIdentifier:
    template <class Cell>
    void registerClass(const std::string& forCellWithReuseIdentifier) {
        makers_[forCellWithReuseIdentifier] = [] { return std::make_shared<Cell>(); };
    }
    /// A cell that has left the view, or a new one; null when nothing is registered under the identifier.
    std::shared_ptr<UICollectionViewCell> dequeueReusableCell(const std::string& identifier);

    void reloadData();
    /// As reloadData(): sections that are not named lose nothing by being made anew as well.
    void reloadSections(const std::vector<int>& sections);
    int numberOfItemsInSection(int section) const;

    /// The cell of an item that is looked at; null for any other.
    std::shared_ptr<UICollectionViewCell> cellForItem(IndexPath indexPath) const;
    std::vector<IndexPath> indexPathsForVisibleItems() const;

    void setBounds(Rect bounds) override;
    void layoutSubviews() override;

private:
    friend class UICollectionViewCell;
    /// A flight over more items than this shows only those at its two ends.
    static constexpr std::size_t mostItemsOnTheWay = 48;

    std::vector<UICollectionViewFlowLayout::Section> measureSections();
    void layOutItems();
    void recycleCells(const std::function<bool(IndexPath)>& which);
    std::vector<IndexPath> itemsLookedAt() const;
    void showCells();
    void showCell(IndexPath indexPath);
    void cellWasTapped(const UICollectionViewCell& cell);

    std::shared_ptr<UICollectionViewFlowLayout> layout_;
    CollectionViewDataSource* dataSource_ = nullptr;
    CollectionViewDelegate* collectionDelegate_ = nullptr;
    std::map<std::string, std::function<std::shared_ptr<UICollectionViewCell>()>> makers_;
    std::map<std::string, std::vector<std::shared_ptr<UICollectionViewCell>>> reusable_;
    std::map<IndexPath, std::shared_ptr<UICollectionViewCell>> cells_;
    std::vector<int> itemCounts_; // of each section, since the last reload
    bool needsReload_ = true;
    Size laidOut_; // the bounds' size that the items were placed for
};

} // namespace toolkit
