#include "platform/toolkit/layers/FlatPrefix.h"

#include <cstring>

namespace toolkit {

namespace {

constexpr int mostNeededFrames = 64;

} // namespace

void FlatPrefix::reset(int width, int height) {
    width_ = width;
    height_ = height;
    roots_.clear();
    rootCount_ = itemCount_ = 0;
    pixels_.clear();
}

PixelView FlatPrefix::view() {
    return {pixels_.data(), width_, height_, width_ * 4};
}

void FlatPrefix::noteRoots(const std::vector<std::uint64_t>& roots, const std::vector<DisplayItem>& items,
                           const DisplayListChanges& changes) {
    std::vector<bool> changed(roots_.size(), false);
    for (const std::size_t root : changes.changedOldRoots)
        changed[root] = true;
    std::vector<Root> now(roots.size());
    for (std::size_t i = 0; i < roots.size(); ++i) {
        now[i].id = roots[i];
        for (std::size_t j = 0; j < roots_.size(); ++j)
            if (roots_[j].id == roots[i]) {
                now[i] = roots_[j];
                now[i].stillFrames = changed[j] ? 0 : now[i].stillFrames + 1;
            }
    }
    for (std::size_t i = 0; i < items.size(); ++i)
        if (changes.isChanged[i])
            now[items[i].root].stillFrames = 0;
    for (std::size_t i = 0; i < rootCount_; ++i) {
        const bool stands = i < now.size() && now[i].id == roots_[i].id && now[i].stillFrames > 0;
        if (stands)
            continue;
        if (i < now.size())
            now[i].neededFrames = std::min(mostNeededFrames, now[i].neededFrames * 2);
        rootCount_ = itemCount_ = 0;
    }
    roots_ = std::move(now);
}

void FlatPrefix::update(const std::vector<std::uint64_t>& roots, const std::vector<DisplayItem>& items,
                        const DisplayListChanges& changes, const Painter& paint) {
    noteRoots(roots, items, changes);
    std::size_t still = 0;
    while (still < roots_.size() && roots_[still].stillFrames >= roots_[still].neededFrames)
        ++still;
    const auto firstItemOf = [&](std::size_t root) {
        std::size_t item = itemCount_;
        while (item < items.size() && items[item].root < root)
            ++item;
        return item;
    };
    if (still <= rootCount_ || still == roots_.size())
        return;
    const std::size_t end = firstItemOf(still);
    if (end > itemCount_) {
        if (itemCount_ == 0) {
            pixels_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 4, 0);
            for (std::size_t i = 3; i < pixels_.size(); i += 4)
                pixels_[i] = 255;
        }
        paint(view(), itemCount_, end);
    }
    rootCount_ = still;
    itemCount_ = end;
}

void FlatPrefix::copyTo(const PixelView& target, const PixelRect& area) const {
    const std::size_t bytes = static_cast<std::size_t>(area.width) * 4;
    for (int y = area.y; y < area.maxY(); ++y)
        std::memcpy(target.at(area.x, y),
                    pixels_.data() + (static_cast<std::ptrdiff_t>(y) * width_ + area.x) * 4, bytes);
}

} // namespace toolkit
