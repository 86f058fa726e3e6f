#include "platform/toolkit/scrolling/UICollectionViewFlowLayout.h"

#include <algorithm>

namespace toolkit {

UICollectionViewFlowLayout::Along UICollectionViewFlowLayout::along(const Rect& rect) const {
    return direction_ == ScrollDirection::Horizontal ? Along{rect.x, rect.maxX()}
                                                     : Along{rect.y, rect.maxY()};
}

Rect UICollectionViewFlowLayout::place(Size item, double begin, Along across) const {
    const bool horizontal = direction_ == ScrollDirection::Horizontal;
    const double breadth = horizontal ? item.height : item.width;
    const double side = across.begin + (across.end - across.begin - breadth) / 2;
    return horizontal ? Rect({begin, side}, item) : Rect({side, begin}, item);
}

/// Answers where the section's items end.
double UICollectionViewFlowLayout::layOutSection(const Section& section, double begin, Along across) {
    std::vector<Rect>& frames = frames_.emplace_back();
    frames.reserve(section.items.size());
    double end = begin;
    for (const Size item : section.items) {
        const Rect frame = place(item, frames.empty() ? begin : end + section.lineSpacing, across);
        end = along(frame).end;
        frames.push_back(frame);
    }
    return end;
}

void UICollectionViewFlowLayout::layOut(const std::vector<Section>& sections, Size visible) {
    const bool horizontal = direction_ == ScrollDirection::Horizontal;
    frames_.clear();
    double end = 0;
    for (const Section& section : sections) {
        const EdgeInsets& inset = section.inset;
        const Along across = horizontal ? Along{inset.top, visible.height - inset.bottom}
                                        : Along{inset.left, visible.width - inset.right};
        end = layOutSection(section, end + (horizontal ? inset.left : inset.top), across) +
              (horizontal ? inset.right : inset.bottom);
    }
    contentSize_ = horizontal ? Size{end, visible.height} : Size{visible.width, end};
}

bool UICollectionViewFlowLayout::contains(IndexPath indexPath) const {
    if (indexPath.section < 0 || indexPath.item < 0)
        return false;
    const auto section = static_cast<std::size_t>(indexPath.section);
    return section < frames_.size() && static_cast<std::size_t>(indexPath.item) < frames_[section].size();
}

Rect UICollectionViewFlowLayout::frameForItem(IndexPath indexPath) const {
    if (!contains(indexPath))
        return {};
    return frames_[static_cast<std::size_t>(indexPath.section)][static_cast<std::size_t>(indexPath.item)];
}

std::vector<IndexPath> UICollectionViewFlowLayout::itemsIn(const Rect& rect) const {
    std::vector<IndexPath> found;
    const Along wanted = along(rect);
    for (std::size_t section = 0; section < frames_.size(); ++section) {
        const auto& frames = frames_[section];
        auto frame = std::partition_point(frames.begin(), frames.end(),
                                          [&](const Rect& one) { return along(one).end <= wanted.begin; });
        for (; frame != frames.end() && along(*frame).begin < wanted.end; ++frame)
            found.push_back({static_cast<int>(section), static_cast<int>(frame - frames.begin())});
    }
    return found;
}

} // namespace toolkit
