#include "platform/toolkit/scrolling/UICollectionView.h"

#include <algorithm>
#include <set>

namespace toolkit {

runtime::Class& UICollectionView::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<UICollectionView>("UICollectionView", &UIScrollView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(UICollectionView)

UICollectionView::UICollectionView(Rect frame,
                                   std::shared_ptr<UICollectionViewFlowLayout> collectionViewLayout)
    : UIScrollView(frame), layout_(std::move(collectionViewLayout)) {}

UICollectionView::~UICollectionView() = default;

void UICollectionView::setDataSource(CollectionViewDataSource* dataSource) {
    dataSource_ = dataSource;
    reloadData();
}

void UICollectionView::setCollectionViewDelegate(CollectionViewDelegate* delegate) {
    collectionDelegate_ = delegate;
    setDelegate(delegate);
}

std::shared_ptr<UICollectionViewCell> UICollectionView::dequeueReusableCell(const std::string& identifier) {
    auto& waiting = reusable_[identifier];
    if (!waiting.empty()) {
        auto cell = std::move(waiting.back());
        waiting.pop_back();
        cell->prepareForReuse();
        return cell;
    }
    const auto maker = makers_.find(identifier);
    if (maker == makers_.end())
        return nullptr;
    auto cell = maker->second();
    cell->reuseIdentifier_ = identifier;
    cell->collectionView_ = this;
    return cell;
}

// Items

void UICollectionView::reloadData() {
    needsReload_ = true;
    setNeedsLayout();
}

void UICollectionView::reloadSections(const std::vector<int>& sections) {
    if (!sections.empty())
        reloadData();
}

int UICollectionView::numberOfItemsInSection(int section) const {
    return dataSource_ ? dataSource_->numberOfItemsInSection(const_cast<UICollectionView&>(*this), section)
                       : 0;
}

std::vector<UICollectionViewFlowLayout::Section> UICollectionView::measureSections() {
    // A view without a delegate has the layout's own measures.
    CollectionViewDelegate plain;
    CollectionViewDelegate& measures = collectionDelegate_ ? *collectionDelegate_ : plain;
    std::vector<UICollectionViewFlowLayout::Section> sections(itemCounts_.size());
    for (int index = 0; index < static_cast<int>(sections.size()); ++index) {
        auto& section = sections[static_cast<std::size_t>(index)];
        section.inset = measures.insetForSectionAtIndex(*this, *layout_, index);
        section.lineSpacing = measures.minimumLineSpacingForSectionAtIndex(*this, *layout_, index);
        section.items.reserve(static_cast<std::size_t>(itemCounts_[static_cast<std::size_t>(index)]));
        for (int item = 0; item < itemCounts_[static_cast<std::size_t>(index)]; ++item)
            section.items.push_back(measures.sizeForItemAtIndexPath(*this, *layout_, {index, item}));
    }
    return sections;
}

void UICollectionView::layOutItems() {
    if (needsReload_) {
        recycleCells([](IndexPath) { return true; });
        itemCounts_.clear();
        const int sections = dataSource_ ? dataSource_->numberOfSectionsInCollectionView(*this) : 0;
        for (int section = 0; section < sections; ++section)
            itemCounts_.push_back(std::max(0, numberOfItemsInSection(section)));
    }
    needsReload_ = false;
    laidOut_ = bounds().size();
    layout_->layOut(measureSections(), laidOut_);
    setContentSize(layout_->contentSize());
    for (const auto& [indexPath, cell] : cells_)
        cell->setFrame(layout_->frameForItem(indexPath));
}

// Cells

std::shared_ptr<UICollectionViewCell> UICollectionView::cellForItem(IndexPath indexPath) const {
    const auto found = cells_.find(indexPath);
    return found == cells_.end() ? nullptr : found->second;
}

std::vector<IndexPath> UICollectionView::indexPathsForVisibleItems() const {
    std::vector<IndexPath> visible;
    for (const auto& [indexPath, cell] : cells_)
        visible.push_back(indexPath);
    return visible;
}

void UICollectionView::recycleCells(const std::function<bool(IndexPath)>& which) {
    std::erase_if(cells_, [&](const auto& entry) {
        const auto& [indexPath, cell] = entry;
        if (!which(indexPath))
            return false;
        cell->removeFromSuperview();
        reusable_[cell->reuseIdentifier()].push_back(cell);
        return true;
    });
}

/// Also what an animated offset passes on its way.
std::vector<IndexPath> UICollectionView::itemsLookedAt() const {
    const Rect target = bounds();
    const Rect shown = std::get<Rect>(layer()->presented(LayerProperty::Bounds));
    auto items = layout_->itemsIn(target.united(shown));
    if (items.size() <= mostItemsOnTheWay)
        return items;
    items = layout_->itemsIn(shown);
    const auto there = layout_->itemsIn(target);
    items.insert(items.end(), there.begin(), there.end());
    return items;
}

void UICollectionView::showCells() {
    const auto items = itemsLookedAt();
    const std::set<IndexPath> wanted(items.begin(), items.end());
    recycleCells([&](IndexPath indexPath) { return !wanted.contains(indexPath); });
    for (const IndexPath indexPath : wanted)
        if (!cells_.contains(indexPath))
            showCell(indexPath);
}

void UICollectionView::showCell(IndexPath indexPath) {
    const auto cell = dataSource_ ? dataSource_->cellForItemAtIndexPath(*this, indexPath) : nullptr;
    if (!cell)
        return;
    // Where a cell stands and how large it is has nothing to do with what else is being animated.
    AnimationEngine::shared().withoutAnimation([&] {
        cell->setFrame(layout_->frameForItem(indexPath));
        // Beneath the scroll indicators, which are layers of the view's own.
        insertSubview(cell, 0);
        cell->layoutIfNeeded();
    });
    cells_[indexPath] = cell;
}

void UICollectionView::cellWasTapped(const UICollectionViewCell& cell) {
    const auto tapped = std::find_if(cells_.begin(), cells_.end(),
                                     [&](const auto& entry) { return entry.second.get() == &cell; });
    if (tapped != cells_.end() && collectionDelegate_)
        collectionDelegate_->didSelectItemAtIndexPath(*this, IndexPath(tapped->first));
}

// Layout

void UICollectionView::setBounds(Rect bounds) {
    UIScrollView::setBounds(bounds);
    if (!needsReload_ && this->bounds().size() == laidOut_)
        showCells();
}

void UICollectionView::layoutSubviews() {
    if (needsReload_ || bounds().size() != laidOut_)
        layOutItems();
    showCells();
}

} // namespace toolkit
